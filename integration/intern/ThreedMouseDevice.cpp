#include "integration/intern/ThreedMouseDevice.h"

#include "engine/VelUtil.h"

#include <QApplication>

namespace velmora::sdk::integration::intern {

namespace {

// Devices tell of a motion every 8 to 16 ms for as long as it lasts. Without a limit idle time would never come again
// after one that was unplugged in a motion, of which daemons of protocol 0 do not tell.
constexpr int SilenceMilliseconds = 500;

QPointer<ThreedMouseDevice>& device()
{
    static QPointer<ThreedMouseDevice> ofApplication;
    return ofApplication;
}

} // namespace

ThreedMouseDevice* ThreedMouseDevice::ofApplication(const ThreedMouseEvents::Callbacks& callbacks)
{
    if (!device() && QCoreApplication::instance())
        device() = new ThreedMouseDevice(callbacks); // a child of the application object
    return device();
}

ThreedMouseDevice* ThreedMouseDevice::current()
{
    return device();
}

void ThreedMouseDevice::workEnded()
{
    if (device() && device()->m_events.isAnythingOpen())
        device()->m_ends.start(0);
}

ThreedMouseDevice::ThreedMouseDevice(const ThreedMouseEvents::Callbacks& callbacks)
    : QObject(QCoreApplication::instance()), m_events([this] { return audience(); }, callbacks),
      m_connection(*this, this)
{
    m_ends.setSingleShot(true);
    m_silence.setSingleShot(true);
    m_silence.setInterval(SilenceMilliseconds);
    connect(&m_ends, SIGNAL(timeout()), this, SLOT(tellEnds()));
    connect(&m_silence, SIGNAL(timeout()), this, SLOT(takeSilenceForRest()));
}

void ThreedMouseDevice::listenFor(const QWidget& widget)
{
    m_widget = const_cast<QWidget*>(&widget); // of which nothing is asked but whether it lives
    m_connection.open();
}

// The daemon tells every program, whichever the person works with.
ThreedMouseEvents::Audience ThreedMouseDevice::audience() const
{
    if (VelUtilIsBusy())
        return ThreedMouseEvents::HearsNothing;
    return m_widget && QApplication::activeWindow() ? ThreedMouseEvents::HearsAll : ThreedMouseEvents::HearsEnds;
}

void ThreedMouseDevice::messageCame(const ThreedMouseMessage& message)
{
    m_wasHeard = true;
    m_events.add(message);
}

void ThreedMouseDevice::messagesEnded()
{
    m_silence.start();
    m_events.tell();
}

void ThreedMouseDevice::connectionLost()
{
    m_silence.stop();
    m_events.rest();
}

void ThreedMouseDevice::tellEnds()
{
    m_events.tellEnds();
}

// What has come in the meantime counts, however long the application had no time to read it.
void ThreedMouseDevice::takeSilenceForRest()
{
    if (!m_events.deviceMoves())
        return;
    m_wasHeard = false;
    m_connection.readWaiting();
    if (!m_wasHeard)
        m_events.rest();
}

} // namespace velmora::sdk::integration::intern
