#include "tests/applications/Program.h"

#include "tests/applications/Confinement.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {

namespace {

void set(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 1);
}

void setEnvironment(const Start& start, int socket)
{
    const std::string home = homeOf(start);
    for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "TMPDIR"})
        set(name, home);
    set("PATH", home); // it can start nothing
    set("LANG", "C.UTF-8");
    unsetenv("QT_QPA_PLATFORMTHEME");
    set("LD_PRELOAD", start.preload);
    set("VELMORA_TRY_SOCKET", std::to_string(socket));
    set("VELMORA_TRY_MONITOR", start.monitor);
    set("VELMORA_TRY_DATA", start.data);
    set("VELMORA_TRY_EVENTS", start.events);
}

[[noreturn]] void become(const Start& start, int socket)
{
    std::vector<char*> words;
    for (const std::string& word : start.command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    setEnvironment(start, socket);
    if (chdir(homeOf(start).c_str()) != 0 || !confineWritingTo(start.folder))
        _exit(126);
    execv(words[0], words.data());
    std::fprintf(stderr, "%s cannot be started\n", words[0]);
    _exit(127);
}

} // namespace

std::string homeOf(const Start& start)
{
    return start.folder + "/home";
}

void prepareHome(const Start& start)
{
    const std::filesystem::path home = homeOf(start);
    std::filesystem::remove_all(home);
    std::filesystem::create_directories(home);
    for (const std::string& file : start.files)
        std::filesystem::copy(file, home / std::filesystem::path(file).filename());
}

Program::Program(const Start& start) : m_patienceMilliseconds(start.patienceSeconds * 1000)
{
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        throw std::runtime_error("There is no socket to be had.");
    m_process = fork();
    if (m_process == 0) {
        close(ends[0]);
        become(start, ends[1]);
    }
    close(ends[1]);
    m_socket = ends[0];
}

Program::~Program()
{
    close(m_socket);
    if (m_process > 0) {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
}

std::string Program::ask(const std::string& question)
{
    const std::string line = question + '\n';
    if (send(m_socket, line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size()))
        becomeEnded();
    std::string answer;
    for (;;) {
        char part[4096];
        pollfd wait = {m_socket, POLLIN, 0};
        if (poll(&wait, 1, m_patienceMilliseconds) != 1)
            becomeFrozen(question);
        const ssize_t count = recv(m_socket, part, sizeof part, 0);
        if (count <= 0)
            becomeEnded();
        answer.append(part, static_cast<std::size_t>(count));
        if (answer.back() == '\n')
            return answer.substr(0, answer.size() - 1);
    }
}

void Program::becomeFrozen(const std::string& question)
{
    kill(m_process, SIGABRT);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
    throw ProgramFrozen("FROZEN: no answer to \"" + question + "\"");
}

/// It may take its time to leave, once its application object has gone.
void Program::becomeEnded()
{
    int status = 0;
    int waited = 0;
    while (waitpid(m_process, &status, WNOHANG) == 0) {
        if (waited++ * 100 > m_patienceMilliseconds)
            becomeFrozen("the end of its connection");
        poll(nullptr, 0, 100);
    }
    m_process = -1;
    if (WIFSIGNALED(status))
        throw ProgramEnded("CRASHED: signal " + std::to_string(WTERMSIG(status)), true);
    throw ProgramEnded("ended with " + std::to_string(WEXITSTATUS(status)), false);
}

} // namespace velmora::test
