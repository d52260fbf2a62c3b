#include "tests/support/ProcessId.h"

#include <QProcess>

namespace velmora::test {

qint64 processIdOf(const QProcess& process)
{
    return process.pid();
}

} // namespace velmora::test
