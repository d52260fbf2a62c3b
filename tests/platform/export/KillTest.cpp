#include "tests/platform/export/ExportFixture.h"

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {
namespace {

constexpr const char* TargetVariable = "VELMORA_TEST_EXPORT_TARGET";
constexpr int MostMilliseconds = 120000;

class ExportKilled : public ExportFixture {};

/// The other process: exports until it writes, says so on its standard output, and waits for its end.
TEST_F(ExportKilled, DISABLED_InTheOtherProcess)
{
    load(tableFile());
    slowDown();
    inTurn = [this] {
        if (progress.size() > 3 && told.back().find("Writing") == 0) {
            EXPECT_EQ(::write(STDOUT_FILENO, "!", 1), 1);
            for (;;)
                pause();
        }
        return 0;
    };
    const VelExportImageOptions wanted = options(600, 700);
    VelUtilExportImage(std::getenv(TargetVariable), &wanted);
}

/// Runs this program again for that one test, with its standard output in a pipe.
class OtherProcess {
public:
    OtherProcess()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        char program[] = "/proc/self/exe";
        char disabled[] = "--gtest_also_run_disabled_tests";
        char filter[] = "--gtest_filter=ExportKilled.DISABLED_InTheOtherProcess";
        char* arguments[] = {program, disabled, filter, nullptr};
        EXPECT_EQ(posix_spawn(&m_process, program, &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        m_output = ends[0];
    }
    ~OtherProcess() { close(m_output); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    /// False when it ended or the time is up.
    bool waitUntilItWrites() const
    {
        pollfd wait{m_output, POLLIN, 0};
        char character = 0;
        while (poll(&wait, 1, MostMilliseconds) == 1 && read(m_output, &character, 1) == 1)
            if (character == '!')
                return true;
        return false;
    }
    void kill()
    {
        ::kill(m_process, SIGKILL);
        int status = 0;
        waitpid(m_process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

private:
    pid_t m_process = -1;
    int m_output = -1;
};

TEST_F(ExportKilled, LeavesNoHalfFileUnderTheName)
{
    const std::string target = path("picture.png");
    setenv(TargetVariable, target.c_str(), 1);
    OtherProcess first;
    EXPECT_TRUE(first.waitUntilItWrites());
    EXPECT_EQ(files().size(), 1U) << "it has begun";
    first.kill();
    EXPECT_NE(access(target.c_str(), F_OK), 0);

    load(tableFile());
    exported("picture.png", options(40, 30));
    const std::string older = content(target);
    OtherProcess second;
    EXPECT_TRUE(second.waitUntilItWrites());
    EXPECT_EQ(content(target), older);
    second.kill();
    EXPECT_EQ(content(target), older);
}

} // namespace
} // namespace velmora::test
