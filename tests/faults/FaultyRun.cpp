#include "tests/faults/FaultyRun.h"

#include "tests/support/ProcessId.h"
#include "tests/support/ToolkitFacts.h"

#include <QElapsedTimer>
#include <QFile>
#include <functional>

#include <poll.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int LongestRunMilliseconds = 120000;
constexpr int LookAgainMilliseconds = 10;
constexpr int AtRestMilliseconds = 500;

bool waitFor(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > LongestRunMilliseconds)
            return false;
        poll(nullptr, 0, LookAgainMilliseconds);
    }
    return true;
}

} // namespace

FaultyRun::FaultyRun()
{
    m_environment = QProcess::systemEnvironment();
    setVariable("XDG_CONFIG_HOME", folder.path());
}

FaultyRun::~FaultyRun()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void FaultyRun::setVariable(const char* name, const QString& value)
{
    const QString prefix = QLatin1String(name) + QLatin1Char('=');
    for (int i = m_environment.size() - 1; i >= 0; --i)
        if (m_environment[i].startsWith(prefix))
            m_environment.removeAt(i);
    if (!value.isNull())
        m_environment << prefix + value;
}

void FaultyRun::start(const QStringList& arguments)
{
    m_process.setEnvironment(m_environment);
    m_process.start(QLatin1String(VIEWER_PROGRAM), arguments);
    ASSERT_TRUE(m_process.waitForStarted(LongestRunMilliseconds));
}

/// 0 when there is no such process any more.
long FaultyRun::processorMilliseconds() const
{
    QFile file(QString::fromLatin1("/proc/%1/stat").arg(processIdOf(m_process)));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    const long ticks = fields.value(11).toLong() + fields.value(12).toLong();
    return ticks * 1000 / sysconf(_SC_CLK_TCK);
}

bool FaultyRun::hasLoaded(const char* library) const
{
    QFile file(QString::fromLatin1("/proc/%1/maps").arg(processIdOf(m_process)));
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(library);
}

bool FaultyRun::waitUntilAtWork(int milliseconds)
{
    if (!waitFor([this] { return hasLoaded(libraryForX11()); }))
        return false;
    const long starting = processorMilliseconds();
    return waitFor([&] { return processorMilliseconds() >= starting + milliseconds; });
}

bool FaultyRun::waitUntilAtRest()
{
    long used = -1;
    QElapsedTimer unchanged;
    return waitFor([&] {
        const long now = processorMilliseconds();
        if (now != used)
            unchanged.start();
        used = now;
        return unchanged.elapsed() >= AtRestMilliseconds;
    });
}

int FaultyRun::exitCode()
{
    const bool ended = m_process.waitForFinished(LongestRunMilliseconds);
    m_told = QString::fromUtf8(m_process.readAllStandardError());
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int FaultyRun::run(const QStringList& arguments)
{
    start(arguments);
    return exitCode();
}

void FaultyRun::expectEnd(int code, const QStringList& words)
{
    EXPECT_EQ(exitCode(), code) << told().toStdString();
    for (const QString& word : words)
        EXPECT_TRUE(told().contains(word)) << word.toStdString() << " in " << told().toStdString();
}

void FaultyRun::expectRun(const QStringList& arguments, int code, const QStringList& words)
{
    SCOPED_TRACE(arguments.join(" ").toStdString());
    start(arguments);
    expectEnd(code, words);
}

} // namespace velmora::test
