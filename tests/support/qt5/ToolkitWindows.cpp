#include "tests/support/ToolkitWindows.h"

#include <QDir>
#include <QFile>
#include <QWidget>
#include <QX11Info>

namespace velmora::test {

double displayScale(const QWidget& widget)
{
    return widget.devicePixelRatioF();
}

Display* toolkitDisplay()
{
    return QX11Info::display();
}

// A thread reads for it; it has been woken for what came before the answer, and sleeps when it has taken that up.
bool toolkitHasReadAll()
{
    const QDir threads("/proc/self/task");
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(threads.filePath(thread + "/status"));
        if (!status.open(QIODevice::ReadOnly))
            continue; // has just ended
        const QByteArray text = status.readAll();
        if (text.startsWith("Name:\tQXcbEventQueue") && !text.contains("State:\tS"))
            return false;
    }
    return true;
}

} // namespace velmora::test
