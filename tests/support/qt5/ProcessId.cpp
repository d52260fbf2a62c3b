#include "tests/support/ProcessId.h"

#include <QProcess>

namespace velmora::test {

qint64 processIdOf(const QProcess& process)
{
    return process.processId();
}

} // namespace velmora::test
