// ApplicationEventMonitor::EventFilter: what happens to every event of the application.

#include "analytics/GoogleAnalytics.h"
#include "integration/HeldBackEvents.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/intern/EventReceiverDestroyedListener.h"
#include "integration/toolkit/EventLoopLevel.h"
#include "integration/toolkit/EventTransport.h"

#include <QDropEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

namespace velmora::sdk::integration::intern {

using Filter = ApplicationEventMonitor::EventFilter;

Filter::EventFilter(ApplicationEventMonitor& monitor)
    : m_monitor(monitor), m_nestedLoops(monitor,
                                        [this] {
                                            // What was swallowed before such a loop began is told in it, where
                                            // everything works as ever.
                                            if (!m_missed.isEmpty())
                                                postTrigger();
                                        }),
      m_closingOfDialogs(
          [this](QObject* receiver, QEvent* event) { return m_isInstalled && eventFilter(receiver, event); })
{}

Filter::~EventFilter()
{
    // Deliberately not deleted, see the class.
    static_cast<void>(m_interruptedEvent.release());
}

void Filter::setInstalled(bool installed)
{
    m_isInstalled = installed;
    if (installed)
        m_nestedLoops.watch();
    else
        m_nestedLoops.unwatch();
}

namespace {

bool isOfMouseButton(const QEvent& event)
{
    const QEvent::Type type = event.type();
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

// What the analyzer certainly passes over, found out without calling it: all types above the last of its
// table, and timers of other objects than widgets, are most of what comes by.
bool isPassedOverByAnalyzer(const QEvent& event, const QObject& receiver)
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
    if (toolkit::isOnlyTransport(receiver) || m_closingOfDialogs.takesOver(receiver, *event))
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::Close && m_closingWindow == receiver)
        return true; // it has accepted already, and this one comes accepted
    if ((m_hasInterruptedEvent || event->spontaneous() || !isPassedOverByAnalyzer(*event, *receiver)) &&
        !isStillToBeDelivered(receiver, event))
        return true;
    if (isDispatchingInterruptedEvent(*event))
        return false;
    broadcastIfOnIdle(*event);
    if (m_monitor.discardNextEvent) {
        m_monitor.discardNextEvent = false;
        const bool isOfStopButton = m_monitor.isStopButton(receiver);
        if (!m_nestedLoops.isOneRunning())
            return !isOfStopButton;
    }
    if ((type == QEvent::TouchBegin || type == QEvent::TabletPress) && isPressToDiscard(receiver)) {
        // The toolkit then makes a mouse press of it, which is discarded in its turn.
        event->ignore();
        return true;
    }
    // Asked again: the engine may just have been asked to stop by one of the above.
    return m_monitor.shouldInterrupt() && isSwallowedByInterruption(receiver, event);
}

// Sends the copy that waits and tells listeners and engine of the event. False: it must not go on, because it
// has been delivered already or because one of those who were told has destroyed its receiver.
bool Filter::isStillToBeDelivered(QObject* receiver, QEvent* event)
{
    const QPointer<QObject> alive(receiver);
    if (isOfMouseButton(*event))
        notifyEngineOfPossibleMouseStateChange(*event);
    if (alive && m_hasInterruptedEvent && !m_isTellingOfEnd && !m_monitor.isBusy() && mayBeSentNow(receiver, *event) &&
        interruptedEventWasSentFirst(receiver, event))
        return false;
    if (alive && event->spontaneous())
        announceNewEvent(receiver);
    if (alive && !isPassedOverByAnalyzer(*event, *receiver) && !m_monitor.shouldInterrupt())
        notifyEngine(receiver, *event);
    if (alive)
        return true;
    event->accept(); // or the toolkit would ask the parent of what is no more
    return false;
}

namespace {

// A menu closes when one of its entries is chosen, before that entry's action is done.
bool closesPopup(const QObject& receiver, const QEvent& event)
{
    return event.type() == QEvent::Close && receiver.isWidgetType() &&
           static_cast<const QWidget&>(receiver).windowType() == Qt::Popup;
}

} // namespace

// A listener may open a loop of its own, in which further events come by here.
void Filter::notifyEngine(QObject* receiver, const QEvent& event)
{
    const bool isOther = closesPopup(*receiver, event) || m_nestedLoops.isOneRunning();
    const QScopedValueRollback<int> level(m_levelOfTellingOther);
    m_levelOfTellingOther = isOther ? toolkit::eventLoopLevel() : NoLevel;
    eventAnalyzer(event, *receiver, m_monitor.m_eventNotifier.to(*receiver));
}

bool Filter::isTellingOfOtherInput() const
{
    return m_levelOfTellingOther == toolkit::eventLoopLevel();
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

bool isDragOverOrDrop(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

// What a person does. Of these types alone the choice HeldBackEvents_Input holds back.
bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

// A press of a finger or a pen while the engine is busy is discarded like that of a mouse button.
bool Filter::isPressToDiscard(const QObject* receiver) const
{
    return m_monitor.isBusy() && !m_monitor.shouldInterrupt() && !m_nestedLoops.isOneRunning() &&
           !m_monitor.isStopButton(receiver);
}

// While interrupting, everything is held back, paint and timer events included, unless the host has chosen
// otherwise; only the first event is kept. Reporting over the network goes on, which needs its objects to be
// put together.
bool Filter::isSwallowedByInterruption(QObject* receiver, QEvent* event)
{
    if (heldBackEvents() == HeldBackEvents_Input && !isInput(event->type()))
        return false;
    const bool isFirst = !m_hasInterruptedEvent;
    if (isFirst)
        saveInterruptedEventForDispatchingWhenUnwound(receiver, event);
    // A window stays open for now.
    event->setAccepted(event->type() != QEvent::Close);
    // The source of a drag that is told "moved" may delete what nobody has taken.
    if (isDragOverOrDrop(event->type()))
        static_cast<QDropEvent*>(event)->setDropAction(Qt::IgnoreAction);
    if (!(isFirst && m_interruptedEvent)) // whose copy comes anyway
        m_missed.remember(receiver, event);
    const bool ofNetwork = isNetworkSource(*receiver) || (receiver->parent() && isNetworkSource(*receiver->parent()));
    return !(ofNetwork && event->type() == QEvent::ChildAdded);
}

} // namespace velmora::sdk::integration::intern
