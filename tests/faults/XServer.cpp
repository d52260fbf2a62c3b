#include "tests/faults/XServer.h"

#include <QFile>
#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int LongestStartMilliseconds = 60000;

pid_t start(const QStringList& words, int nameGoesTo)
{
    std::vector<std::string> texts;
    for (const QString& word : words)
        texts.push_back(word.toStdString());
    std::vector<char*> arguments;
    for (std::string& text : texts)
        arguments.push_back(&text[0]);
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, nameGoesTo, 3);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int error = posix_spawnp(&process, "Xvfb", &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("Xvfb could not be started; install the package xvfb.");
    return process;
}

} // namespace

XServer::XServer(const QStringList& options, const QString& screen)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("There is no pipe to be had.");
    QStringList words = QString::fromLatin1("Xvfb -displayfd 3 -dpi 96 -noreset -nolisten tcp -screen 0").split(' ');
    m_process = start(words << screen << options, ends[1]);
    close(ends[1]);
    m_name = readName(ends[0]);
    close(ends[0]);
    if (m_name.isEmpty()) {
        kill();
        throw std::runtime_error("Xvfb did not start.");
    }
}

XServer::~XServer()
{
    kill();
}

QString XServer::readName(int from) const
{
    QByteArray number;
    pollfd wait = {from, POLLIN, 0};
    char character = 0;
    while (poll(&wait, 1, LongestStartMilliseconds) == 1 && read(from, &character, 1) == 1 && character != '\n')
        number += character;
    return number.isEmpty() ? QString() : ":" + QString::fromLatin1(number);
}

void XServer::kill()
{
    if (m_process < 0)
        return;
    ::kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
    if (m_name.isEmpty())
        return;
    // Killed like this it leaves its socket and its lock behind.
    const QString number = m_name.mid(1);
    QFile::remove("/tmp/.X11-unix/X" + number);
    QFile::remove("/tmp/.X" + number + "-lock");
}

} // namespace velmora::test
