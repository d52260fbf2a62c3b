// Signals that ask the viewer to end while it makes a picture, as Ctrl+C does.

#include "tests/support/Wait.h"
#include "tests/viewer/ViewerProcess.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace velmora::test;

namespace {

constexpr int SideOfALongDrawing = 300;
const char* const Older = "an older file";

std::string contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().constData() : "";
}

// Not a QProcess, which does not tell what signal has ended it.
class EndSignals : public ViewerProcess {
protected:
    EndSignals() { setenv("XDG_CONFIG_HOME", folder.path().toUtf8().constData(), 1); }
    ~EndSignals() override
    {
        if (viewer > 0 && !hasEnded()) {
            send(SIGKILL);
            waitpid(viewer, nullptr, 0);
        }
    }

    void start(const char* task, const QString& output, const QString& data)
    {
        std::string words[] = {VIEWER_PROGRAM, "--slow", task, output.toStdString(), data.toStdString()};
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(&word[0]);
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        const std::string told = folder.file("told").toStdString();
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, told.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ended = false;
        ASSERT_EQ(posix_spawn(&viewer, VIEWER_PROGRAM, &actions, nullptr, arguments.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
    }

    bool hasEnded()
    {
        ended = ended || waitpid(viewer, &status, WNOHANG) == viewer;
        return ended;
    }

    QStringList files(QDir::Filters filters) const { return QDir(folder.path()).entryList(QDir::Files | filters); }
    bool isWriting() const { return files(QDir::Hidden) != files(QDir::Filters()); }

    /// Whether the process has a handler for the signal.
    bool handles(int signal) const
    {
        QFile file(QString::fromLatin1("/proc/%1/status").arg(viewer));
        const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        const QByteArray mask = text.mid(text.indexOf("SigCgt:") + 7).trimmed().left(16);
        return (mask.toULongLong(nullptr, 16) >> (signal - 1)) % 2 == 1;
    }

    void send(int signal) const { ASSERT_EQ(kill(viewer, signal), 0); }

    void expectEndedBy(int signal)
    {
        ASSERT_TRUE(waitUntil([this] { return hasEnded(); }));
        EXPECT_TRUE(WIFSIGNALED(status)) << status;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(contentOf(folder.file("told")),
                  "viewer: Stopped before the picture was complete; nothing was written.\n");
    }

    /// The signals come in the middle of a task that would replace an older file.
    void stopWhileWriting(const char* task, const char* name, std::initializer_list<int> signals)
    {
        SCOPED_TRACE(strsignal(*signals.begin()));
        const QString output = folder.write(name, Older);
        start(task, output, folder.writeGrid(SideOfALongDrawing));
        ASSERT_TRUE(waitUntil([this] { return isWriting() || hasEnded(); }));
        for (const int signal : signals)
            send(signal);
        expectEndedBy(*signals.begin());
        expectUntouched(output);
    }

    void expectUntouched(const QString& output) const
    {
        EXPECT_EQ(contentOf(output), Older);
        EXPECT_FALSE(isWriting()) << files(QDir::Hidden).join(" ").toStdString();
    }

private:
    pid_t viewer = -1;
    bool ended = false;
    int status = 0;
};

} // namespace

TEST_F(EndSignals, InTheMiddleOfAnExportLeaveTheOlderFileAndNoOther)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        stopWhileWriting("--export", "plot.png", {signal});
}

TEST_F(EndSignals, InTheMiddleOfPrintingLeaveTheOlderFileAndNoOther)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        stopWhileWriting("--print", "plot.pdf", {signal});
}

TEST_F(EndSignals, ThatComeTwiceAreLikeOne)
{
    stopWhileWriting("--export", "plot.png", {SIGTERM, SIGTERM});
}

TEST_F(EndSignals, BeforeTheEngineIsBusyStopItsFirstWork)
{
    const QString output = folder.write("plot.png", Older);
    start("--snapshot", output, folder.writeGrid(SideOfALongDrawing));
    ASSERT_TRUE(waitUntil([this] { return handles(SIGINT) || hasEnded(); }));
    send(SIGINT);
    expectEndedBy(SIGINT);
    expectUntouched(output);
}

TEST_F(EndSignals, WithoutAnOlderFileLeaveNone)
{
    start("--export", folder.file("plot.png"), folder.writeGrid(SideOfALongDrawing));
    ASSERT_TRUE(waitUntil([this] { return isWriting() || hasEnded(); }));
    send(SIGINT);
    expectEndedBy(SIGINT);
    EXPECT_EQ(files(QDir::Hidden).join(" ").toStdString(), "hill.asc told");
}

TEST_F(EndSignals, ThatAreIgnoredFromTheStartStaySo)
{
    const auto before = std::signal(SIGINT, SIG_IGN);
    start("--export", folder.file("plot.png"), folder.writeGrid(SideOfALongDrawing));
    std::signal(SIGINT, before);
    ASSERT_TRUE(waitUntil([this] { return isWriting() || hasEnded(); }));
    EXPECT_FALSE(handles(SIGINT));
    EXPECT_TRUE(handles(SIGTERM));
    send(SIGINT);
    EXPECT_TRUE(isWriting());
    send(SIGTERM);
    expectEndedBy(SIGTERM);
}
