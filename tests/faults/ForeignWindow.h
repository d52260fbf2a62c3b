#pragma once

#include <QSize>
#include <QString>

namespace velmora::test {

/// The main window of a program on some display, as another program sees it.
class ForeignWindow {
public:
    /// Waits for a window whose title contains the text; throws std::runtime_error when none comes.
    ForeignWindow(const QString& display, const char* title);

    QSize size() const;
    QSize screenSize() const;
    /// Asks the program to close it, as window managers do.
    void close() const;
    /// Cuts the program's connection to the display, as window managers do with one that hangs.
    void killClient() const;

private:
    QString m_display;
    unsigned long m_window = 0;
};

} // namespace velmora::test
