#pragma once

#include "integration/intern/MissedNotifications.h"
#include "integration/intern/NestedLoops.h"
#include "integration/toolkit/ClosingOfDialogs.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"

#include <QObject>
#include <QPointer>
#include <memory>
#include <string>
#include <typeinfo>

class QCloseEvent;
class QInputEvent;
class QKeyEvent;
class QMouseEvent;
class QShortcutEvent;
class QTimerEvent;
class QWheelEvent;
class QWidget;

namespace velmora::sdk::integration::intern {

class EventReceiverDestroyedListener;

/// The object through which every event of the application passes on its way to its receiver.
///
/// From `start()` to `stop()` it tells listeners when mouse buttons go down and up, hands user input
/// to the engine, announces idle time, and, while the busy engine has been asked to stop, holds
/// events back (`setHeldBackEvents` says which): it keeps a copy of the first and sends it again once
/// the engine's work is off the call stack. docs/interrupting-event.md shows the way of such an event.
///
/// While a nested loop runs (a menu, a dialog, a QEventLoop opened in the application's turn), the
/// application behaves as if the engine were idle: no press is discarded, Escape interrupts nothing, and
/// a request to stop waits until that loop has ended.
///
/// Owned by the Manager, which stops it before destroying it. GUI thread only. Exceptions of
/// listeners pass through to the toolkit, but those thrown in the turn of a busy engine, which end its
/// work, and those of EngineIsNoLongerBusy slots, which the engine gets.
class ApplicationEventMonitor : public ApplicationEventMonitorAbstract {
public:
    /// What can be done with each kind of event that matters to the engine.
    class EventHandlerInterface {
    public:
        /// @{
        /// Called for an event of that kind, valid during the call.
        virtual void handleTimerEventCausingWidgetChange(const QTimerEvent& event) = 0;
        virtual void handleMouseWheelEvent(const QWheelEvent& event) = 0;
        virtual void handleMouseMoveEvent(const QMouseEvent& event) = 0;
        virtual void handleMouseButtonPress(const QMouseEvent& event) = 0;
        virtual void handleMouseButtonRelease(const QMouseEvent& event) = 0;
        virtual void handleMouseButtonDblClick(const QMouseEvent& event) = 0;
        virtual void handleKeyPress(const QKeyEvent& event) = 0;
        virtual void handleKeyRelease(const QKeyEvent& event) = 0;
        virtual void handleShortcut(const QShortcutEvent& event) = 0;
        virtual void handleCloseEvent(const QCloseEvent& event) = 0;
        /// @}

        /// Any other event: nothing, in every implementation.
        void handleEvent(const QEvent&) {}

        virtual ~EventHandlerInterface() = default;
    };

    /// Hands events to the engine: to the listeners and signals of the monitor, in the engine's own
    /// records.
    class EventNotifier : public virtual EventHandlerInterface {
    public:
        /// Tells the listeners and signals of `monitor`, which owns it.
        explicit EventNotifier(ApplicationEventMonitor& monitor);

        /// Says whom the next event is for, which tells how large the pixels of its position are.
        EventNotifier& to(const QObject& receiver)
        {
            m_receiver = &receiver;
            return *this;
        }

        void handleTimerEventCausingWidgetChange(const QTimerEvent& event) override;
        void handleMouseWheelEvent(const QWheelEvent& event) override;
        void handleMouseMoveEvent(const QMouseEvent& event) override;
        void handleMouseButtonPress(const QMouseEvent& event) override;
        void handleMouseButtonRelease(const QMouseEvent& event) override;
        void handleMouseButtonDblClick(const QMouseEvent& event) override;
        void handleKeyPress(const QKeyEvent& event) override;
        void handleKeyRelease(const QKeyEvent& event) override;
        void handleShortcut(const QShortcutEvent& event) override;
        void handleCloseEvent(const QCloseEvent& event) override;

    private:
        ApplicationEventMonitor& m_monitor;
        const QObject* m_receiver; ///< of the last event; it may be gone since
    };

    /// The filter on the application object. Its destructor does not free a copy that still waits:
    /// deliberate, the monitor goes at process exit, when the copy's receiver may be gone already.
    class EventFilter : public QObject {
    public:
        /// Of `monitor`, which owns it.
        explicit EventFilter(ApplicationEventMonitor& monitor);
        ~EventFilter() override;

        /// True: the event is swallowed. The order of the tests in it is part of the design.
        bool eventFilter(QObject* receiver, QEvent* event) override;

        /// Whether the event is the copy that is being sent again right now.
        bool isDispatchingInterruptedEvent(const QEvent& event) const { return &event == m_dispatchingEvent; }
        /// Whether a copy (or an event that could not be copied) waits to be sent again.
        bool hasInterruptedEvent() const { return m_hasInterruptedEvent; }
        /// Delivers the live event that waits for the copy before it, if there is one.
        void deliverParkedEvent();

        /// @{
        /// The timer of 0 ms whose timeout means that the event queue is empty. Starting one that runs has
        /// no further effect.
        void startIdleDetectionTimer();
        void killIdleDetectionTimer();
        void restartIdleDetectionTimerIfItWasKilledWhileBusy();
        /// @}
        /// While it is not installed, a timer that still runs ends with its next event.
        void setInstalled(bool installed);
        /// For the engine; `clientData` is the address of the filter.
        static void engineNotBusyCallback(long clientData);

        NestedLoops& nestedLoops() { return m_nestedLoops; }
        const NestedLoops& nestedLoops() const { return m_nestedLoops; }
        /// Whether the engine and its listeners are being told of an event that is no reason to stop the work:
        /// input of a nested loop, or the closing of a menu or another popup.
        bool isTellingOfOtherInput() const;

    protected:
        /// Ends an idle timer that nobody waits for any more.
        void timerEvent(QTimerEvent* event) override;
        /// What it posts to itself when the work has ended: receivers are told what they missed.
        void customEvent(QEvent* event) override;

    private:
        class EventCloner;
        class ParkedEvent;
        class EndOfWork;
        friend struct EventFilterProbe;

        bool isStillToBeDelivered(QObject* receiver, QEvent* event);
        void notifyEngineOfPossibleMouseStateChange(const QEvent& event);
        void announceNewEvent(const QObject* receiver);
        void notifyEngine(QObject* receiver, const QEvent& event);
        void broadcastIfOnIdle(const QEvent& event);
        bool interruptedEventWasSentFirst(QObject* receiver, QEvent* event);
        bool isPressToDiscard(const QObject* receiver) const;
        bool isSwallowedByInterruption(QObject* receiver, QEvent* event);

        static std::unique_ptr<QEvent> copyOf(const QEvent& event, QObject& receiver);
        void saveInterruptedEventForDispatchingWhenUnwound(QObject* receiver, QEvent* event);
        void sendInterruptedEvent();
        bool mayBeSentNow(const QObject* receiver, const QEvent& event) const;
        void deliver(QEvent& clone, QObject* receiver);
        void finishClosing(QWidget& window);
        void interruptedEventReceiverDestroyed();
        void postTrigger();

        std::unique_ptr<EventReceiverDestroyedListener> m_receiverListener; ///< watches the copy's receiver
        ApplicationEventMonitor& m_monitor;
        QObject* m_interruptedEventReceiver = nullptr;
        const std::type_info* m_interruptedEventReceiverType = nullptr; ///< its class as long as it is whole
        std::unique_ptr<QEvent> m_interruptedEvent; ///< the copy that waits; null when it could not be made
        QEvent* m_dispatchingEvent = nullptr;       ///< the copy while it is being sent again
        bool m_hasInterruptedEvent = false;
        bool m_idleTimerActive = false;
        int m_idleTimerId = 0; ///< -1 once a timer was killed
        bool m_idleTimerKilledWhileBusy = false;
        const QEvent* m_interruptingEventOriginal = nullptr; ///< to look at in a debugger; never read
        QEvent* m_currentEvent = nullptr;                    ///< the live event that waits while the copy is being sent
        QPointer<QObject> m_currentReceiver;
        std::unique_ptr<QEvent> m_abandonedClone; ///< a copy whose handler threw
        MissedNotifications m_missed{&EventFilter::copyOf};
        NestedLoops m_nestedLoops;
        toolkit::ClosingOfDialogs m_closingOfDialogs;
        const QObject* m_closingWindow = nullptr; ///< has accepted the copy of a Close and is closed for it
        static constexpr int NoLevel = -1;        ///< no count of event loops
        int m_levelOfTellingOther = NoLevel;      ///< count of event loops while isTellingOfOtherInput()
        bool m_isTellingOfEnd = false;            ///< EngineIsNoLongerBusy is being emitted
        bool m_isInstalled = false;
    };

    /// For the manager that owns it.
    explicit ApplicationEventMonitor(ManagerInterface& manager);
    ~ApplicationEventMonitor() override;

    /// Also without effect when a listener calls it for input of a nested loop, which is that loop's, and for
    /// the closing of a menu or another popup, which is how an entry is chosen.
    void interrupt() override;
    /// False while a nested loop runs: the request waits.
    bool shouldInterrupt() override;
    /// False while a nested loop runs, and while a popup closes.
    bool isEngineInterruptible() const override;
    void processWhileBusy_Internal() override;
    void interruptEventProcessing() override;
    operator long() const override;
    /// Begins to filter the application's events, which needs an application object, and announces
    /// which mouse buttons are down. Always true.
    bool start() override;
    /// Ends what `start` began and leaves a waiting event and the idle timer as they are. Always
    /// true.
    bool stop() override;

    /// The last event type that the analyzer knows.
    static constexpr QEvent::Type LastAnalyzedType = QEvent::Shortcut;
    /// Calls the operation of the handler that is for this kind of event.
    static void eventAnalyzer(const QEvent& event, QObject& receiver, EventHandlerInterface& handler);

    /// The button that caused the event; the extra buttons and several at once are no button.
    static MouseEventInterface::MouseButton_e mouseButton(const QMouseEvent& event);
    /// The event's modifiers as a generic modifier mask.
    static int genericModifiersForEvent(const QInputEvent& event);

    /// Connects this monitor with the 3D mouse of this name, for as long as the program runs.
    void startThreedMouse(const std::string& deviceName, const QWidget& widget);

private:
    friend struct EventFilterProbe;

    EventFilter m_eventFilter;
    EventNotifier m_eventNotifier;
};

} // namespace velmora::sdk::integration::intern
