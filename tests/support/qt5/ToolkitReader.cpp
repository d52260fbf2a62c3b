#include "tests/support/ToolkitWindows.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

namespace velmora::test {

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
