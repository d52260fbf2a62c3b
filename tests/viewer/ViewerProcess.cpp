#include "tests/viewer/ViewerProcess.h"

#include <QProcess>

namespace velmora::test {

namespace {

constexpr int LongestRunMilliseconds = 120000;

} // namespace

Ended ViewerProcess::run(const QStringList& arguments) const
{
    QProcess process;
    QStringList environment = QProcess::systemEnvironment();
    environment << QLatin1String("XDG_CONFIG_HOME=") + folder.path();
    process.setEnvironment(environment);
    process.start(QLatin1String(VIEWER_PROGRAM), arguments);
    Ended result;
    if (!process.waitForFinished(LongestRunMilliseconds)) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
    }
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.error = QString::fromUtf8(process.readAllStandardError());
    return result;
}

} // namespace velmora::test
