#pragma once

#include "interfaces/Signal.h"
#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class MouseEventInterface;
class MouseEventListenerInterface;
class MouseWheelEventInterface;

/// A source of mouse, wheel and 3D-mouse events, announced two ways: to listeners added by pointer
/// and through the signals below. GUI thread only.
class VELMORA_INTERFACE MouseEventObservableInterface {
public:
    /// One motion sample of a six-axis 3D mouse, in the device's own right-handed axes.
    struct MotionData {
        double translation[3] = {0.0, 0.0, 0.0}; ///< displacement along x, y, z, -1 to 1 of full deflection
        double rotation[3] = {0.0, 0.0, 0.0};    ///< rotation about x, y, z, -1 to 1 of full deflection
        long elapsedMilliseconds = 0;            ///< time since the sample before
    };

    /// One action of a 3D-mouse button.
    struct ButtonActions {
        int button = 0;       ///< number of the button as the device counts them, from 0
        bool pressed = false; ///< true when it went down, false when it came up
    };

private:
    // First, so that the signals are built before anything that a producer adds.
    Signal<void(MouseEventInterface&)> m_mouseMoved;
    Signal<void(MouseEventInterface&)> m_buttonPressed;
    Signal<void(MouseEventInterface&)> m_buttonDoublePressed;
    Signal<void(MouseEventInterface&)> m_buttonReleased;
    Signal<void(MouseWheelEventInterface&)> m_wheelRotated;
    Signal<void(const MotionData&)> m_threedMouseMotionEvent;
    Signal<void()> m_threedMouseMotionEventEnd;
    Signal<void(ButtonActions)> m_threedMouseButtonActionEvent;

public:
    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    virtual void addMouseListener(MouseEventListenerInterface* listener) = 0;
    /// A listener that was not added is ignored.
    virtual void removeMouseListener(MouseEventListenerInterface* listener) = 0;

    /// @{
    /// Called when a slot has been connected to the signal of that name. No producer reacts.
    virtual void signalMouseMovedConnected() const {}
    virtual void signalButtonPressedConnected() const {}
    virtual void signalButtonDoublePressedConnected() const {}
    virtual void signalButtonReleasedConnected() const {}
    virtual void signalWheelRotatedConnected() const {}
    virtual void signalThreedMouseMotionEventConnected() const {}
    virtual void signalThreedMouseMotionEventEndConnected() const {}
    virtual void signalThreedMouseButtonActionEventConnected() const {}
    /// @}

    virtual ~MouseEventObservableInterface() = default;

    /// @{
    /// Slot `void(MouseEventInterface&)`, called after the listeners. The event is valid only during the
    /// call.
    template <typename Slot>
    Connection connectMouseMoved(const Slot& slot)
    {
        return connectTo(m_mouseMoved, slot, *this, &MouseEventObservableInterface::signalMouseMovedConnected);
    }
    template <typename Slot>
    Connection connectButtonPressed(const Slot& slot)
    {
        return connectTo(m_buttonPressed, slot, *this, &MouseEventObservableInterface::signalButtonPressedConnected);
    }
    template <typename Slot>
    Connection connectButtonDoublePressed(const Slot& slot)
    {
        return connectTo(m_buttonDoublePressed, slot, *this,
                         &MouseEventObservableInterface::signalButtonDoublePressedConnected);
    }
    template <typename Slot>
    Connection connectButtonReleased(const Slot& slot)
    {
        return connectTo(m_buttonReleased, slot, *this, &MouseEventObservableInterface::signalButtonReleasedConnected);
    }
    /// @}
    /// Slot `void(MouseWheelEventInterface&)`: the wheel was turned. The event is valid only during the
    /// call; there is no listener operation for it.
    template <typename Slot>
    Connection connectWheelRotated(const Slot& slot)
    {
        return connectTo(m_wheelRotated, slot, *this, &MouseEventObservableInterface::signalWheelRotatedConnected);
    }
    /// Slot `void(const MotionData&)`: the 3D mouse is being moved.
    template <typename Slot>
    Connection connectThreedMouseMotionEvent(const Slot& slot)
    {
        return connectTo(m_threedMouseMotionEvent, slot, *this,
                         &MouseEventObservableInterface::signalThreedMouseMotionEventConnected);
    }
    /// Slot `void()`: the 3D mouse has come to rest.
    template <typename Slot>
    Connection connectThreedMouseMotionEventEnd(const Slot& slot)
    {
        return connectTo(m_threedMouseMotionEventEnd, slot, *this,
                         &MouseEventObservableInterface::signalThreedMouseMotionEventEndConnected);
    }
    /// Slot `void(ButtonActions)`: a button of the 3D mouse went down or up.
    template <typename Slot>
    Connection connectThreedMouseButtonActionEvent(const Slot& slot)
    {
        return connectTo(m_threedMouseButtonActionEvent, slot, *this,
                         &MouseEventObservableInterface::signalThreedMouseButtonActionEventConnected);
    }

protected:
    MouseEventObservableInterface() = default;
    MouseEventObservableInterface(const MouseEventObservableInterface&) = delete;
    MouseEventObservableInterface& operator=(const MouseEventObservableInterface&) = delete;

    /// @{
    /// Calls the slots of the signal of that name. For the producer alone.
    void emitMouseMoved(MouseEventInterface& event) { emitTo(m_mouseMoved, event); }
    void emitButtonPressed(MouseEventInterface& event) { emitTo(m_buttonPressed, event); }
    void emitButtonDoublePressed(MouseEventInterface& event) { emitTo(m_buttonDoublePressed, event); }
    void emitButtonReleased(MouseEventInterface& event) { emitTo(m_buttonReleased, event); }
    void emitWheelRotated(MouseWheelEventInterface& event) { emitTo(m_wheelRotated, event); }
    void emitThreedMouseMotionEvent(const MotionData& motion) { emitTo(m_threedMouseMotionEvent, motion); }
    void emitThreedMouseMotionEventEnd() { emitTo(m_threedMouseMotionEventEnd); }
    void emitThreedMouseButtonActionEvent(ButtonActions actions) { emitTo(m_threedMouseButtonActionEvent, actions); }
    /// @}
};

} // namespace integration
} // namespace sdk
} // namespace velmora
