#pragma once

#include "interfaces/MouseEventInterface.h"
#include "interfaces/Signal.h"

namespace velmora {
namespace sdk {
namespace integration {

/// Watches every event of the application for the engine. GUI thread only.
class VELMORA_INTERFACE ApplicationEventMonitorInterface {
public:
    /// What is known of the receiver of an event that came from the window system.
    struct EventReceiverInfo {
        bool receiverIsVisibleWidget = false; ///< the receiver is a widget, and that widget is visible
    };

private:
    Signal<void(MouseEventInterface::MouseButton_e, bool)> m_mouseButtonStateChanged;
    Signal<void()> m_widgetChangeDuetoTimerEvent;
    Signal<void(const EventReceiverInfo&)> m_processingNewEvent;
    Signal<void()> m_engineIsNoLongerBusy;

public:
    /// Whether the engine works.
    virtual bool isBusy() const = 0;
    /// Asks the busy engine to stop at the end of its current slice of work; nothing when it is not
    /// busy, and nothing while one of the engine's dialogs is open. Returns at once. Until the engine
    /// has unwound, events are swallowed; of the first a copy is delivered afterwards.
    virtual void interrupt() = 0;
    /// True exactly while the engine has been asked to stop; not while one of the engine's dialogs is
    /// open, whose events must arrive: a request from before takes effect once it is closed.
    virtual bool shouldInterrupt() = 0;
    /// Whether an Escape key would interrupt now: the engine is busy, no stop button is in
    /// force and none of the engine's dialogs is open.
    virtual bool isEngineInterruptible() const = 0;

    /// @{
    /// Called when a slot has been connected to the signal of that name.
    virtual void signalMouseButtonStateChangedConnected() const {}
    virtual void signalWidgetChangeDuetoTimerEventConnected() const {}
    virtual void signalProcessingNewEventConnected() const {}
    virtual void signalEngineIsNoLongerBusyConnected() const {}
    /// @}

    virtual ~ApplicationEventMonitorInterface() = default;

    /// Slot `void(MouseEventInterface::MouseButton_e button, bool pressed)`: any press, double click or
    /// release in the application, before it is delivered, swallowed ones included; and once more when
    /// the copy of an interrupting one is. An extra button is MouseButton_None. The start of the
    /// monitor announces the three buttons as they are.
    template <typename Slot>
    Connection connectMouseButtonStateChanged(const Slot& slot)
    {
        return connectTo(m_mouseButtonStateChanged, slot, *this,
                         &ApplicationEventMonitorInterface::signalMouseButtonStateChangedConnected);
    }
    /// Slot `void()`: a value widget is about to change through its auto-repeat timer.
    template <typename Slot>
    Connection connectWidgetChangeDuetoTimerEvent(const Slot& slot)
    {
        return connectTo(m_widgetChangeDuetoTimerEvent, slot, *this,
                         &ApplicationEventMonitorInterface::signalWidgetChangeDuetoTimerEventConnected);
    }
    /// Slot `void(const EventReceiverInfo&)`: an event came from the window system. Called before it is
    /// delivered, also when it is swallowed then.
    template <typename Slot>
    Connection connectProcessingNewEvent(const Slot& slot)
    {
        return connectTo(m_processingNewEvent, slot, *this,
                         &ApplicationEventMonitorInterface::signalProcessingNewEventConnected);
    }
    /// Slot `void()`: the engine stopped being busy. Called from inside the engine: must not throw.
    template <typename Slot>
    Connection connectEngineIsNoLongerBusy(const Slot& slot)
    {
        return connectTo(m_engineIsNoLongerBusy, slot, *this,
                         &ApplicationEventMonitorInterface::signalEngineIsNoLongerBusyConnected);
    }

protected:
    ApplicationEventMonitorInterface() = default;
    ApplicationEventMonitorInterface(const ApplicationEventMonitorInterface&) = delete;
    ApplicationEventMonitorInterface& operator=(const ApplicationEventMonitorInterface&) = delete;

    /// @{
    /// Calls the slots of the signal of that name. For the monitor alone.
    void emitMouseButtonStateChanged(MouseEventInterface::MouseButton_e button, bool pressed)
    {
        emitTo(m_mouseButtonStateChanged, button, pressed);
    }
    void emitWidgetChangeDuetoTimerEvent() { emitTo(m_widgetChangeDuetoTimerEvent); }
    void emitProcessingNewEvent(const EventReceiverInfo& info) { emitTo(m_processingNewEvent, info); }
    void emitEngineIsNoLongerBusy() { emitTo(m_engineIsNoLongerBusy); }
    /// @}
};

} // namespace integration
} // namespace sdk
} // namespace velmora
