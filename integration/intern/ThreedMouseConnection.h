#pragma once

#include "integration/intern/Mouse3DInput.h"

#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

struct SpacenavLibrary;
struct ThreedMouseMessage;

/// The connection to the daemon of the 3D mice. The library finds the daemon and agrees with it on a protocol; the
/// messages are read here, because the library takes what one read brings for a whole message, and after half a
/// message would be out of step for good. It is read when the event loop finds that something came, never waited for.
///
/// A connection that breaks is tried again by itself, after 1 second, 2, 4 and so on up to a minute. One that could not
/// be made is not: few people have a 3D mouse, and no program shall wake up for one that is not there. GUI thread only.
class ThreedMouseConnection : public QObject {
    Q_OBJECT

public:
    /// Hears what comes, in its order.
    class Listener {
    public:
        virtual void messageCame(const ThreedMouseMessage& message) = 0;
        /// There are no more messages for now, or so many came that the application is to have its turn first.
        virtual void messagesEnded() = 0;
        /// The daemon has ended, or what it tells makes no sense.
        virtual void connectionLost() = 0;

    protected:
        ~Listener() = default;
    };

    ThreedMouseConnection(Listener& listener, QObject* parent);
    ~ThreedMouseConnection() override;

    /// Connects where there is no connection. With a daemon of protocol 0 or one that does not answer this takes the
    /// 0.3 seconds that the library waits.
    void open();
    threedmouse::DeviceState_e state() const { return m_state; }

public Q_SLOTS:
    /// Reads what has come.
    void readWaiting();

private Q_SLOTS:
    void tryAgain();

private:
    static constexpr int MostMessagesAtOnce = 64;
    static constexpr int WordsOfMessage = 8;

    threedmouse::DeviceState_e connectToDaemon();
    void watch(int descriptor);
    bool takeMessages();
    void lose();
    void close();

    Listener& m_listener;
    const SpacenavLibrary* m_library = nullptr; ///< while connected
    QSocketNotifier* m_notifier = nullptr;      ///< while connected; a child
    QTimer m_retry;
    int m_pause;
    threedmouse::DeviceState_e m_state = threedmouse::DeviceState_NotStarted;
    int m_words[MostMessagesAtOnce * WordsOfMessage]; ///< what was read and not taken yet
    int m_byteCount = 0;                              ///< of it
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
