// ApplicationEventMonitor::EventFilter: finding out that the application has nothing left to do.

#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/intern/Mouse3DInput.h"
#include "integration/intern/ThreedMouseDevice.h"

#include <QCoreApplication>
#include <QTimerEvent>

namespace velmora::sdk::integration::intern {

using Filter = ApplicationEventMonitor::EventFilter;

void Filter::broadcastIfOnIdle(const QEvent& event)
{
    if (m_monitor.isBusy()) {
        if (m_idleTimerActive) {
            m_idleTimerKilledWhileBusy = true;
            killIdleDetectionTimer();
        }
        return;
    }
    if (!m_idleTimerActive) {
        startIdleDetectionTimer();
        return;
    }
    // The toolkit fires a timer of 0 ms only when its queue is empty: that is idle.
    if (event.type() == QEvent::Timer && static_cast<const QTimerEvent&>(event).timerId() == m_idleTimerId &&
        !threedmouse::isProcessingThreedMouseEvents()) {
        killIdleDetectionTimer();
        m_monitor.notifyOfIdle(m_monitor);
    }
}

void Filter::startIdleDetectionTimer()
{
    // An event that came between the end of the work and the engine's callback has started one
    // already; a second would orphan it, and it would fire for ever.
    if (m_idleTimerActive)
        return;
    m_idleTimerActive = true;
    m_idleTimerId = startTimer(0);
}

void Filter::killIdleDetectionTimer()
{
    killTimer(m_idleTimerId);
    m_idleTimerId = -1;
    m_idleTimerActive = false;
}

void Filter::restartIdleDetectionTimerIfItWasKilledWhileBusy()
{
    if (!m_idleTimerKilledWhileBusy)
        return;
    m_idleTimerKilledWhileBusy = false;
    startIdleDetectionTimer();
}

// Nobody looks for idle time any more, and a timer of 0 ms would keep the processor busy.
void Filter::timerEvent(QTimerEvent* event)
{
    if (!m_isInstalled && event->timerId() == m_idleTimerId)
        killIdleDetectionTimer();
}

// What waits is sent before the next event, and without a trigger that could be long in coming. It comes
// through the queue, when the engine's frames have left the call stack.
void Filter::postTrigger()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // the queue owns it
}

void Filter::customEvent(QEvent*)
{
    m_missed.tellAgain();
}

/// While the slots of EngineIsNoLongerBusy are called: an event that one of them sends is no occasion to send
/// the copy, for the engine's frames are still on the call stack.
class Filter::EndOfWork {
public:
    explicit EndOfWork(EventFilter& filter) : m_filter(filter) { m_filter.m_isTellingOfEnd = true; }
    ~EndOfWork()
    {
        m_filter.m_isTellingOfEnd = false;
        if (m_filter.m_hasInterruptedEvent || !m_filter.m_missed.isEmpty())
            m_filter.postTrigger();
    }
    EndOfWork(const EndOfWork&) = delete;
    EndOfWork& operator=(const EndOfWork&) = delete;

private:
    EventFilter& m_filter;
};

void Filter::engineNotBusyCallback(long clientData)
{
    EventFilter& filter = *reinterpret_cast<EventFilter*>(clientData);
    filter.restartIdleDetectionTimerIfItWasKilledWhileBusy();
    filter.m_nestedLoops.workEnded();
    ThreedMouseDevice::workEnded();
    const EndOfWork endOfWork(filter);
    filter.m_monitor.emitEngineIsNoLongerBusy();
}

} // namespace velmora::sdk::integration::intern
