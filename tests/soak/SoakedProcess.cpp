#include "tests/soak/SoakedProcess.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int LongestRestMilliseconds = 120000;
constexpr int LongestEndMilliseconds = 60000;
constexpr int LookMilliseconds = 20;

void become(const std::string& program, const std::string& folder, const std::string& file, int in, int out)
{
    if (chdir(folder.c_str()) != 0 || setenv("HOME", folder.c_str(), 1) != 0 ||
        setenv("XDG_CONFIG_HOME", folder.c_str(), 1) != 0)
        _exit(126);
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    execl(program.c_str(), program.c_str(), file.c_str(), static_cast<char*>(nullptr));
    _exit(127);
}

} // namespace

SoakedProcess::SoakedProcess(const std::string& program, const std::string& folder, const std::string& referenceFile)
{
    int toIt[2] = {-1, -1};
    int fromIt[2] = {-1, -1};
    if (pipe2(toIt, O_CLOEXEC) != 0 || pipe2(fromIt, O_CLOEXEC) != 0)
        throw std::runtime_error("There is no pipe to be had.");
    m_process = fork();
    if (m_process == 0)
        become(program, folder, referenceFile, toIt[0], fromIt[1]);
    ::close(toIt[0]);
    ::close(fromIt[1]);
    m_toIt = toIt[1];
    m_fromIt = fromIt[0];
    std::signal(SIGPIPE, SIG_IGN);
}

SoakedProcess::~SoakedProcess()
{
    if (isRunning()) {
        ::kill(m_process, SIGKILL);
        waitpid(m_process, &m_status, 0);
    }
    if (m_toIt >= 0)
        ::close(m_toIt);
    ::close(m_fromIt);
}

bool SoakedProcess::isRunning()
{
    if (m_process >= 0 && waitpid(m_process, &m_status, WNOHANG) != 0)
        m_process = -1;
    return m_process >= 0;
}

std::string SoakedProcess::rest()
{
    if (write(m_toIt, "rest\n", 5) != 5)
        throw std::runtime_error(howItEnded());
    std::string line;
    pollfd wait = {m_fromIt, POLLIN, 0};
    for (;;) {
        char character = 0;
        if (poll(&wait, 1, LongestRestMilliseconds) != 1)
            giveUp();
        if (read(m_fromIt, &character, 1) != 1)
            throw std::runtime_error(howItEnded());
        if (character == '\n')
            return line;
        line += character;
    }
}

void SoakedProcess::giveUp()
{
    ::kill(m_process, SIGABRT);
    throw std::runtime_error("The program did not come to rest, and was aborted. " + howItEnded());
}

std::string SoakedProcess::howItEnded()
{
    if (m_process >= 0)
        waitpid(m_process, &m_status, 0);
    m_process = -1;
    return WIFSIGNALED(m_status) ? "The program was ended by signal " + std::to_string(WTERMSIG(m_status)) + "."
                                 : "The program ended with code " + std::to_string(WEXITSTATUS(m_status)) + ".";
}

int SoakedProcess::end()
{
    ::close(m_toIt);
    m_toIt = -1;
    for (int waited = 0; isRunning() && waited < LongestEndMilliseconds; waited += LookMilliseconds)
        poll(nullptr, 0, LookMilliseconds);
    return !isRunning() && WIFEXITED(m_status) ? WEXITSTATUS(m_status) : -1;
}

} // namespace velmora::test
