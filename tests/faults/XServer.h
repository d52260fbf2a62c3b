#pragma once

#include <QString>
#include <QStringList>

#include <sys/types.h>

namespace velmora::test {

/// An X server of the test's own, to be looked at, damaged and killed. It has one screen and no
/// window manager.
class XServer {
public:
    /// Throws std::runtime_error when it does not start. `screen` is WIDTHxHEIGHTxDEPTH; the options
    /// are Xvfb's.
    explicit XServer(const QStringList& options = QStringList(), const QString& screen = QLatin1String("1000x800x24"));
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// Its name, as in DISPLAY.
    const QString& name() const { return m_name; }
    /// Ends it as a crash would.
    void kill();

private:
    QString readName(int from) const;

    pid_t m_process = -1;
    QString m_name;
};

} // namespace velmora::test
