#include "tests/support/SpacenavDaemon.h"

#include "tests/support/Wait.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr const char* Variable = "SPNAV_SOCKET";
// The library's first question, and how the answer names the protocol.
constexpr int ChangeProtocol = 0x7faa0000 | 0x5500;
constexpr int QuestionMask = ~0xff;
constexpr int WordCount = 8;

} // namespace

SpacenavDaemon::SpacenavDaemon(int protocol) : m_protocol(protocol)
{
    char folder[] = "/tmp/spacenav-XXXXXX";
    if (!mkdtemp(folder))
        throw std::runtime_error("no temporary folder for the socket");
    m_folder = folder;
    m_path = m_folder + "/socket";
    setenv(Variable, m_path.c_str(), 1);
    listenAt();
}

SpacenavDaemon::~SpacenavDaemon()
{
    kill();
    rmdir(m_folder.c_str());
}

void SpacenavDaemon::pointLibraryToNowhere()
{
    setenv(Variable, "/there/is/none", 1);
}

void SpacenavDaemon::listenAt()
{
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, m_path.c_str(), sizeof address.sun_path - 1);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(listener, 4) != 0)
        throw std::runtime_error("no socket at " + m_path);
    m_isEnding = false;
    m_listener = listener;
    m_thread = std::thread([this] { acceptClients(); });
}

void SpacenavDaemon::restart()
{
    listenAt();
}

void SpacenavDaemon::kill()
{
    if (m_listener < 0)
        return;
    unlink(m_path.c_str());
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        shutdown(m_listener, SHUT_RDWR); // which ends accept()
        for (const int client : m_clients)
            shutdown(client, SHUT_RDWR); // and the greeting
    }
    m_thread.join();
    close(m_listener);
    m_listener = -1;
    for (const int client : m_clients)
        close(client);
    m_clients.clear();
}

void SpacenavDaemon::acceptClients()
{
    for (;;) {
        const int client = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0)
            return;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_clients.push_back(client);
            if (m_isEnding)
                return;
        }
        greet(client);
        ++m_clientCount;
    }
}

// A daemon of protocol 0 takes the question for a sensitivity, and so the number that the library sends after it has
// waited.
void SpacenavDaemon::greet(int client) const
{
    int question = 0;
    if (recv(client, &question, sizeof question, MSG_WAITALL) != sizeof question)
        return;
    if (m_protocol > 0 && (question & QuestionMask) == ChangeProtocol) {
        const int answer = ChangeProtocol | m_protocol;
        ::send(client, &answer, sizeof answer, MSG_NOSIGNAL);
    } else {
        recv(client, &question, sizeof question, MSG_WAITALL);
    }
}

bool SpacenavDaemon::waitForClient()
{
    const int before = m_clientCount;
    return before > 0 || waitUntil([this] { return m_clientCount > 0; });
}

void SpacenavDaemon::send(const void* bytes, std::size_t count)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const char* next = static_cast<const char*>(bytes);
    while (!m_clients.empty() && count > 0) {
        const ssize_t sent = ::send(m_clients.back(), next, count, MSG_NOSIGNAL);
        if (sent < 0)
            return;
        next += sent;
        count -= std::size_t(sent);
    }
}

bool SpacenavDaemon::trySend(const void* bytes, std::size_t count)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return !m_clients.empty() && ::send(m_clients.back(), bytes, count, MSG_NOSIGNAL | MSG_DONTWAIT) == ssize_t(count);
}

std::vector<int> SpacenavDaemon::motion(int x, int y, int z, int rx, int ry, int rz, int period)
{
    return {0, x, y, z, rx, ry, rz, period};
}

void SpacenavDaemon::sendMotion(int x, int y, int z, int rx, int ry, int rz, int period)
{
    const std::vector<int> words = motion(x, y, z, rx, ry, rz, period);
    send(words.data(), words.size() * sizeof(int));
}

void SpacenavDaemon::sendButton(int number, bool pressed)
{
    const int words[WordCount] = {pressed ? 1 : 2, number, 0, 0, 0, 0, 0, 0};
    send(words, sizeof words);
}

void SpacenavDaemon::sendUnplugged()
{
    const int words[WordCount] = {3, 1, 0, 0, 0, 0, 0, 0};
    send(words, sizeof words);
}

} // namespace velmora::test
