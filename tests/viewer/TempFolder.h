#pragma once

#include <QString>

namespace velmora::test {

/// A folder that goes, with all that is in it, when the object goes.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    QString path() const { return m_path; }
    /// The full name of a file of the folder.
    QString file(const char* name) const;
    /// Writes a file and returns its full name.
    QString write(const char* name, const QByteArray& content) const;

    /// A smooth hill of `side` x `side` heights.
    QString writeGrid(int side = 24) const;
    /// Two lines over 40 points.
    QString writeTable() const;

private:
    QString m_path;
};

} // namespace velmora::test
