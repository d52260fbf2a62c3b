#pragma once

#include <QString>

namespace viewer {

/// A file that is written beside its name and takes that name once it is complete: whatever goes
/// wrong before leaves an older file as it was. What must not be replaced (a device, a file or folder
/// one may not write to) is written to in its place.
class NewFile {
public:
    explicit NewFile(const QString& name);
    /// Removes what was not kept.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// The name to write to.
    const QString& writtenName() const { return m_written; }
    bool replaces() const { return m_written != m_name; }
    /// False when the file is not safely on the disk, which may be full, or cannot take its name, or
    /// when a signal has asked the process to end.
    bool keep();

private:
    QString m_name;
    QString m_written;
};

} // namespace viewer
