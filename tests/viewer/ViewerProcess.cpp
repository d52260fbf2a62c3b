#include "tests/viewer/ViewerProcess.h"

namespace velmora::test {

namespace {

constexpr int LongestRunMilliseconds = 120000;

} // namespace

void ViewerProcess::start(QProcess& process, const QStringList& arguments) const
{
    QStringList environment = QProcess::systemEnvironment();
    environment << QLatin1String("XDG_CONFIG_HOME=") + folder.path();
    process.setEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    process.start(QLatin1String(VIEWER_PROGRAM), arguments);
}

Ended ViewerProcess::waitForEnd(QProcess& process)
{
    Ended result;
    QString trouble;
    if (!process.waitForFinished(LongestRunMilliseconds)) {
        process.kill();
        process.waitForFinished();
        trouble = QString("(killed: it had not ended after %1 s)\n").arg(LongestRunMilliseconds / 1000);
    } else if (process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
    } else {
        trouble = QString("(ended by a signal; %1, if the toolkit tells which)\n").arg(process.exitCode());
    }
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.error = QString::fromUtf8(process.readAllStandardError()) + trouble;
    return result;
}

Ended ViewerProcess::run(const QStringList& arguments) const
{
    QProcess process;
    start(process, arguments);
    return waitForEnd(process);
}

} // namespace velmora::test
