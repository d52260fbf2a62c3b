// ApplicationEventMonitor::EventFilter: what happens to every event of the application.

#include "analytics/GoogleAnalytics.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/intern/EventReceiverDestroyedListener.h"
#include "integration/toolkit/EventTransport.h"

#include <QMouseEvent>
#include <QWidget>

namespace velmora::sdk::integration::intern {

using Filter = ApplicationEventMonitor::EventFilter;

Filter::EventFilter(ApplicationEventMonitor& monitor) : m_monitor(monitor) {}

Filter::~EventFilter()
{
    // Deliberately not deleted, see the class.
    static_cast<void>(m_interruptedEvent.release());
}

namespace {

bool isOfMouseButton(const QEvent& event)
{
    const QEvent::Type type = event.type();
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

// What the analyzer certainly passes over, without calling it: all types above the last of its table,
// and timers of other objects than widgets, are most of what comes by.
bool isNobodysBusiness(const QEvent& event, const QObject& receiver)
{
    const QEvent::Type type = event.type();
    return type > ApplicationEventMonitor::LastAnalyzedType || (type == QEvent::Timer && !receiver.isWidgetType());
}

} // namespace

// The way of an event that nobody asked about: it must not allocate, lock or build a string here.
bool Filter::eventFilter(QObject* receiver, QEvent* event)
{
    // Every rule applies to the widget (or application) that follows; otherwise each press would be
    // announced twice.
    if (toolkit::isOnlyTransport(receiver))
        return false;
    if (isOfMouseButton(*event))
        notifyEngineOfPossibleMouseStateChange(*event);
    if (m_hasInterruptedEvent && !m_monitor.isBusy() && mayBeSentNow(receiver, *event) &&
        interruptedEventWasSentFirst(receiver, event))
        return true;
    if (event->spontaneous())
        announceNewEvent(receiver);
    if (!isNobodysBusiness(*event, *receiver) && !m_monitor.shouldInterrupt())
        eventAnalyzer(*event, *receiver, m_monitor.m_eventNotifier.to(*receiver));
    if (isDispatchingInterruptedEvent(*event))
        return false;
    broadcastIfOnIdle(*event);
    if (m_monitor.discardNextEvent) {
        m_monitor.discardNextEvent = false;
        return !m_monitor.isStopButton(receiver);
    }
    // Asked again: the engine may just have been asked to stop by one of the above.
    return m_monitor.shouldInterrupt() && isSwallowedByInterruption(receiver, event);
}

void Filter::notifyEngineOfPossibleMouseStateChange(const QEvent& event)
{
    // Throws for an event that only pretends to be of the mouse.
    const QMouseEvent& mouseEvent = dynamic_cast<const QMouseEvent&>(event);
    m_monitor.emitMouseButtonStateChanged(mouseButton(mouseEvent), event.type() != QEvent::MouseButtonRelease);
}

void Filter::announceNewEvent(const QObject* receiver)
{
    EventReceiverInfo info;
    info.receiverIsVisibleWidget =
        receiver->isWidgetType() && static_cast<const QWidget*>(receiver)->testAttribute(Qt::WA_WState_Visible);
    m_monitor.emitProcessingNewEvent(info);
}

namespace {

bool isNetworkSource(const QObject& object)
{
    return analytics::GoogleAnalytics::isNetworkSource(object.objectName().toUtf8().constData());
}

} // namespace

// While interrupting, everything is held back, paint and timer events included; only the first event
// is kept. Reporting over the network goes on, which needs its objects to be put together.
bool Filter::isSwallowedByInterruption(QObject* receiver, QEvent* event)
{
    const bool isFirst = !m_hasInterruptedEvent;
    if (isFirst)
        saveInterruptedEventForDispatchingWhenUnwound(receiver, event);
    // A window stays open for now.
    event->setAccepted(event->type() != QEvent::Close);
    if (!(isFirst && m_interruptedEvent)) // whose copy comes anyway
        m_housekeeping.remember(receiver, *event);
    const bool ofNetwork = isNetworkSource(*receiver) || (receiver->parent() && isNetworkSource(*receiver->parent()));
    return !(ofNetwork && event->type() == QEvent::ChildAdded);
}

} // namespace velmora::sdk::integration::intern
