#include "integration/intern/ThreedMouseConnection.h"

#include "engine/VelUtil.h"
#include "integration/intern/SpacenavLibrary.h"
#include "integration/intern/ThreedMouseMessage.h"

#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>

namespace velmora::sdk::integration::intern {

namespace {

constexpr int FirstPause = 1000; // milliseconds
constexpr int LongestPause = 60000;
constexpr int LastKnownProtocol = 1; // its messages are those of protocol 0

static_assert(sizeof(int) == sizeof(std::int32_t), "messages are made of numbers of 32 bits");

bool isProtocolKnown(const SpacenavLibrary& library)
{
    return !library.protocol || library.protocol() <= LastKnownProtocol;
}

} // namespace

ThreedMouseConnection::ThreedMouseConnection(Listener& listener, QObject* parent)
    : QObject(parent), m_listener(listener), m_pause(FirstPause)
{
    static_assert(WordsOfMessage == ThreedMouseMessage::WordCount, "the buffer holds whole messages");
    m_retry.setSingleShot(true);
    connect(&m_retry, SIGNAL(timeout()), this, SLOT(tryAgain()));
}

ThreedMouseConnection::~ThreedMouseConnection()
{
    close();
}

void ThreedMouseConnection::open()
{
    if (m_notifier)
        return;
    m_retry.stop();
    m_state = connectToDaemon();
}

threedmouse::DeviceState_e ThreedMouseConnection::connectToDaemon()
{
    const SpacenavLibrary* const library = spacenavLibrary();
    if (!library)
        return threedmouse::DeviceState_NoLibrary;
    if (!openConnection(*library))
        return threedmouse::DeviceState_NoDaemon;
    m_library = library;
    const int descriptor = library->fd();
    if (descriptor < 0 || !isProtocolKnown(*library)) {
        close();
        return threedmouse::DeviceState_NoDaemon;
    }
    watch(descriptor);
    return threedmouse::DeviceState_Connected;
}

void ThreedMouseConnection::watch(int descriptor)
{
    fcntl(descriptor, F_SETFD, FD_CLOEXEC); // a program that the host starts shall not keep it open
    m_byteCount = 0;
    m_notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, SIGNAL(activated(int)), this, SLOT(readWaiting()));
}

// One portion each time; the event loop calls again while there is more, and other events have their turn in between.
void ThreedMouseConnection::readWaiting()
{
    if (!m_notifier)
        return;
    char* const buffer = reinterpret_cast<char*>(m_words);
    const ssize_t count = recv(static_cast<int>(m_notifier->socket()), buffer + m_byteCount,
                               sizeof m_words - std::size_t(m_byteCount), MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0) {
        lose();
        return;
    }
    m_byteCount += static_cast<int>(count);
    if (takeMessages())
        m_listener.messagesEnded();
    else
        lose();
}

// False: what came is out of step. That happens when a motion crosses the library's question for the protocol: it
// takes the first number for the answer.
bool ThreedMouseConnection::takeMessages()
{
    const int whole = m_byteCount / ThreedMouseMessage::Size;
    for (int i = 0; i < whole; ++i) {
        const ThreedMouseMessage message = decode(m_words + i * WordsOfMessage);
        if (message.kind == ThreedMouseMessage::OutOfStep)
            return false;
        m_pause = FirstPause;
        m_listener.messageCame(message);
    }
    char* const buffer = reinterpret_cast<char*>(m_words);
    m_byteCount -= whole * ThreedMouseMessage::Size;
    std::memmove(buffer, buffer + whole * ThreedMouseMessage::Size, std::size_t(m_byteCount));
    return true;
}

void ThreedMouseConnection::lose()
{
    close();
    m_state = threedmouse::DeviceState_Lost;
    m_retry.start(m_pause);
    m_listener.connectionLost();
}

void ThreedMouseConnection::tryAgain()
{
    // Connecting may take a moment, which the work shall not lose.
    const bool connected = !VelUtilIsBusy() && connectToDaemon() == threedmouse::DeviceState_Connected;
    if (connected) {
        m_state = threedmouse::DeviceState_Connected;
        return;
    }
    m_pause = std::min(2 * m_pause, LongestPause);
    m_retry.start(m_pause);
}

void ThreedMouseConnection::close()
{
    if (m_notifier) {
        m_notifier->setEnabled(false); // before its descriptor is closed
        m_notifier->deleteLater();     // it may be what has called
        m_notifier = nullptr;
    }
    if (m_library)
        m_library->close();
    m_library = nullptr;
}

} // namespace velmora::sdk::integration::intern
