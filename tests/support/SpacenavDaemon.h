#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velmora::test {

/// A stand-in for the daemon of the 3D mice: it listens at a UNIX socket of its own, to which SPNAV_SOCKET in the
/// environment leads libspnav, and speaks the daemon's protocol 0, or 1, which differs in the answer to the first
/// question. It accepts on a thread of its own; what it sends is the test's. One client at a time counts, the last.
class SpacenavDaemon {
public:
    explicit SpacenavDaemon(int protocol = 1);
    /// Closes all connections, as a daemon that is killed.
    ~SpacenavDaemon();
    SpacenavDaemon(const SpacenavDaemon&) = delete;
    SpacenavDaemon& operator=(const SpacenavDaemon&) = delete;

    /// Where no daemon listens.
    static void pointLibraryToNowhere();

    /// Ends: connections and socket are closed.
    void kill();
    /// Listens again at the same place.
    void restart();

    /// Waits until a client has connected and, if so, asked for the protocol.
    bool waitForClient();
    /// How many have connected.
    int clientCount() const { return m_clientCount; }

    void sendMotion(int x, int y, int z, int rx, int ry, int rz, int period = 16);
    void sendRest() { sendMotion(0, 0, 0, 0, 0, 0); }
    void sendButton(int number, bool pressed);
    /// As an unplugged device, of which protocol 1 tells.
    void sendUnplugged();
    /// Any part of any messages.
    void send(const void* bytes, std::size_t count);
    /// The same without waiting; false when the client has left no room.
    bool trySend(const void* bytes, std::size_t count);

    /// A message as it is sent.
    static std::vector<int> motion(int x, int y, int z, int rx, int ry, int rz, int period = 16);

private:
    void listenAt();
    void acceptClients();
    void greet(int client) const;

    std::string m_folder;
    std::string m_path;
    int m_protocol;
    std::atomic<int> m_listener{-1};
    std::atomic<int> m_clientCount{0};
    std::mutex m_mutex;
    std::vector<int> m_clients;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace velmora::test
