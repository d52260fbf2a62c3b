// ApplicationEventMonitor::EventFilter: keeping the event that interrupted the engine, and sending it
// again once the engine's work is off the call stack. docs/interrupting-event.md has the picture.

#include "integration/intern/EventCloner.h"
#include "integration/intern/EventReceiverDestroyedListener.h"

#include <QApplication>
#include <QInputEvent>
#include <QMainWindow>
#include <boost/bind/bind.hpp>

namespace velmora::sdk::integration::intern {

using Filter = ApplicationEventMonitor::EventFilter;

/// Parks a live event while the copy before it is being sent. The copy's handler may run a loop in
/// which another event is parked: that one gives the place back to the one outside it, which is then
/// still delivered exactly once, and the place is empty again even when the handler throws.
class Filter::ParkedEvent {
public:
    ParkedEvent(EventFilter& filter, QObject* receiver, QEvent* event)
        : m_filter(filter), m_outerEvent(filter.m_currentEvent), m_outerReceiver(filter.m_currentReceiver)
    {
        m_filter.m_currentEvent = event;
        m_filter.m_currentReceiver = receiver;
    }
    ParkedEvent(const ParkedEvent&) = delete;
    ParkedEvent& operator=(const ParkedEvent&) = delete;
    ~ParkedEvent()
    {
        m_filter.m_currentEvent = m_outerEvent;
        m_filter.m_currentReceiver = m_outerReceiver;
    }

    bool wasDelivered() const { return m_filter.m_currentEvent == nullptr; }
    bool receiverIsGone() const { return m_filter.m_currentReceiver.isNull(); }

private:
    EventFilter& m_filter;
    QEvent* const m_outerEvent;
    const QPointer<QObject> m_outerReceiver;
};

// True: the live event must not go on. It has been delivered already while the copy was being
// handled, or its receiver was destroyed by the copy and nobody is left to deliver it to.
bool Filter::interruptedEventWasSentFirst(QObject* receiver, QEvent* event)
{
    const ParkedEvent parked(*this, receiver, event);
    sendInterruptedEvent();
    // Accepted in both cases, or the toolkit would go on to the parent: of what is no more, or of a
    // receiver whose parents have had their turn when the event was delivered early.
    if (parked.receiverIsGone()) {
        event->accept();
        return true;
    }
    if (parked.wasDelivered() && dynamic_cast<const QInputEvent*>(event))
        event->accept();
    return parked.wasDelivered();
}

namespace {

// From within a destructor on, an object's class is that of the destructor; and a widget has left the chain of
// focus before its destructor makes the toolkit send anything to others.
bool isBeingDestroyed(const QObject& object, const std::type_info& wholeClass)
{
    return typeid(object) != wholeClass ||
           (object.isWidgetType() && !static_cast<const QWidget&>(object).nextInFocusChain());
}

} // namespace

// A receiver that is being destroyed sends itself some last events before it tells of its end, and makes the
// toolkit send others, to the widget that comes under the pointer for example; none of them is an occasion to
// send it anything more.
bool Filter::mayBeSentNow(const QObject* receiver, const QEvent& event) const
{
    // Without a copy there is no receiver to look at: what could not be copied may have been its last event.
    if (m_interruptedEvent && isBeingDestroyed(*m_interruptedEventReceiver, *m_interruptedEventReceiverType))
        return false;
    if (receiver != m_interruptedEventReceiver)
        return true;
    switch (event.type()) {
    case QEvent::ChildRemoved:
    case QEvent::Destroy:
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::HideToParent:
    case QEvent::WinIdChange:
        return false;
    default:
        return true;
    }
}

void Filter::deliverParkedEvent()
{
    if (!m_currentEvent)
        return;
    // Taken out first: its handler may start engine work, which comes here again.
    QEvent* const event = m_currentEvent;
    m_currentEvent = nullptr;
    if (m_currentReceiver)
        QCoreApplication::sendEvent(m_currentReceiver, event);
}

std::unique_ptr<QEvent> Filter::copyOf(const QEvent& event, QObject& receiver)
{
    EventCloner cloner;
    eventAnalyzer(event, receiver, cloner);
    return std::unique_ptr<QEvent>(cloner.clonedEvent());
}

void Filter::saveInterruptedEventForDispatchingWhenUnwound(QObject* receiver, QEvent* event)
{
    std::unique_ptr<QEvent> copy = copyOf(*event, *receiver);
    // Deliberately also without a copy: when the first event cannot be copied, nothing is sent again
    // after this interruption.
    m_hasInterruptedEvent = true;
    m_interruptedEventReceiver = receiver;
    m_interruptedEventReceiverType = &typeid(static_cast<const QObject&>(*receiver));
    m_interruptedEvent = std::move(copy);
    m_receiverListener = std::make_unique<EventReceiverDestroyedListener>(
        *receiver, boost::bind(&EventFilter::interruptedEventReceiverDestroyed, this));
    m_interruptingEventOriginal = event;
}

void Filter::sendInterruptedEvent()
{
    std::unique_ptr<QEvent> clone = std::move(m_interruptedEvent);
    m_hasInterruptedEvent = false;
    // The handler of another copy may have come here; that one goes on being sent afterwards.
    QEvent* const outerDispatchingEvent = m_abandonedClone ? nullptr : m_dispatchingEvent;
    m_dispatchingEvent = clone.get();
    m_abandonedClone.reset();
    // Before the delivery, during which the receiver may go and the next event may be kept.
    m_receiverListener.reset();
    try {
        if (clone)
            deliver(*clone, m_interruptedEventReceiver);
    } catch (...) {
        // The event counts as being sent until the next one is. It must live as long, or another
        // event at its address would be taken for it.
        m_dispatchingEvent = clone.get();
        m_abandonedClone = std::move(clone);
        throw;
    }
    m_dispatchingEvent = outerDispatchingEvent;
}

// A window is closed: the toolkit's call that sent the event first has long returned, with a window that stays
// open. A main window takes the application with it, as it would have done at once, but is hidden first, as ever:
// an editor that is open in it hands over what was typed when it loses the focus, and that must not happen in the
// window's destructor.
void Filter::deliver(QEvent& clone, QObject* receiver)
{
    // Asked before: the receiver may be destroyed by what it does with the event.
    const bool isMainWindow = qobject_cast<QMainWindow*>(receiver) != nullptr;
    const QPointer<QWidget> window(qobject_cast<QWidget*>(receiver));
    QCoreApplication::sendEvent(receiver, &clone);
    if (clone.type() != QEvent::Close || !clone.isAccepted())
        return;
    if (isMainWindow)
        QApplication::setQuitOnLastWindowClosed(false);
    if (window && window->isVisible())
        finishClosing(*window);
    if (isMainWindow)
        QCoreApplication::exit(0);
}

// With all that the toolkit does for a window that is closed, but without asking it a second time.
void Filter::finishClosing(QWidget& window)
{
    m_closingWindow = &window;
    window.close();
    m_closingWindow = nullptr;
}

void Filter::interruptedEventReceiverDestroyed()
{
    m_hasInterruptedEvent = false;
    m_interruptedEvent.reset();
}

} // namespace velmora::sdk::integration::intern
