#pragma once

#include "integration/intern/ThreedMouseConnection.h"
#include "integration/intern/ThreedMouseEvents.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

/// The 3D mouse of the application: what its daemon tells, told on while the application is what the person works with
/// and the engine is not busy. Each end of what was told of is told too, when that is so again: of a motion whose
/// daemon ended, whose device was unplugged or fell silent, and of one in which the person went to another
/// application. It goes with the application object. GUI thread only.
class ThreedMouseDevice : public QObject, private ThreedMouseConnection::Listener {
    Q_OBJECT

public:
    /// The one of the application object, made when it is not there; null without an application object.
    static ThreedMouseDevice* ofApplication(const ThreedMouseEvents::Callbacks& callbacks);
    /// The same, but null when it was not made.
    static ThreedMouseDevice* current();
    /// Tells the device, where there is one, that the engine is no longer busy. From inside the engine: tells nobody
    /// yet.
    static void workEnded();

    /// Connects where there is no connection. While `widget` lives the device is listened to.
    void listenFor(const QWidget& widget);
    threedmouse::DeviceState_e state() const { return m_connection.state(); }
    bool isInMotion() const { return m_events.isInMotion(); }

private Q_SLOTS:
    void tellEnds();
    void takeSilenceForRest();

private:
    explicit ThreedMouseDevice(const ThreedMouseEvents::Callbacks& callbacks);

    void messageCame(const ThreedMouseMessage& message) override;
    void messagesEnded() override;
    void connectionLost() override;
    ThreedMouseEvents::Audience audience() const;

    ThreedMouseEvents m_events;
    ThreedMouseConnection m_connection;
    QPointer<QWidget> m_widget;
    QTimer m_ends;    ///< when the event loop goes on
    QTimer m_silence; ///< while the device moves
    bool m_wasHeard = false;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
