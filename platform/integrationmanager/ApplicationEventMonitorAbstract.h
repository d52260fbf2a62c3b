#pragma once

#include "engine/VelExport.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/KeyEventObservableInterface.h"
#include "interfaces/MouseEventObservableInterface.h"
#include "interfaces/OnIdleObservableInterface.h"

#include <boost/shared_ptr.hpp>
#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class KeyEventInterface;
class ManagerInterface;
class StopButtonInterface;

namespace intern {

/// What is the same for an event monitor on every windowing toolkit: listeners, stop buttons and
/// the request to stop. A toolkit's monitor feeds it with the application's events through the
/// `notifyOf…` operations and supplies the operations that are pure here. GUI thread only.
///
/// While one of the engine's own dialogs is open (a message box or a file dialog that the engine
/// asked a service for), all input is the dialog's: no press is discarded, nothing interrupts, and a
/// request to stop that was made before waits until the dialog is closed.
class VELMORA_PLATFORM_EXPORT ApplicationEventMonitorAbstract : public virtual KeyEventObservableInterface,
                                                                public virtual ApplicationEventMonitorInterface,
                                                                public virtual MouseEventObservableInterface,
                                                                public virtual OnIdleObservableInterface {
public:
    void addKeyboardListener(KeyEventListenerInterface* listener) override;
    void removeKeyboardListener(KeyEventListenerInterface* listener) override;
    ~ApplicationEventMonitorAbstract() override;
    bool isBusy() const override;
    void interrupt() override;
    bool shouldInterrupt() override;
    bool isEngineInterruptible() const override;
    void addMouseListener(MouseEventListenerInterface* listener) override;
    void removeMouseListener(MouseEventListenerInterface* listener) override;
    void addOnIdleListener(OnIdleListenerInterface* listener) override;
    void removeOnIdleListener(OnIdleListenerInterface* listener) override;
    /// Of the registered stop buttons that are active, the one registered last is in force. One that
    /// is always active and has no widget thus suspends interruption until it is unregistered.
    virtual void registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button);
    /// A button that is not registered is ignored.
    virtual void unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button);
    /// Lets the application process its events once.
    virtual void processWhileBusy_Internal() = 0;
    /// Makes a running event loop return.
    virtual void interruptEventProcessing() = 0;
    /// The object's own address.
    virtual operator long() const = 0;
    /// Begins to watch the application's events; false when it cannot.
    virtual bool start() = 0;
    /// Watches them no more; false when it cannot.
    virtual bool stop() = 0;

    /// Gives the application its turn between two slices of engine work; true when the engine shall
    /// stop.
    bool processWhileBusy();
    /// Whether `object` is the widget of the stop button that is in force. Asked for the
    /// receiver of a press that is about to be discarded because the engine is busy, a yes also
    /// asks the engine to stop: that press is the stop button's.
    bool isStopButton(const void* object) const;

protected:
    /// For the monitor of `manager`, which starts and stops it.
    explicit ApplicationEventMonitorAbstract(ManagerInterface& manager);

    /// @{
    /// Input for the engine and for the listeners and signals of this monitor. While the engine is
    /// busy, a press sets discardNextEvent, so that it does not reach a widget; Escape asks the
    /// engine to stop unless a stop button is in force. Neither while a dialog of the engine's is open.
    void notifyOfMouseMoved(MouseEventInterface& event);
    void notifyOfButtonPressed(MouseEventInterface& event);
    void notifyOfButtonReleased(MouseEventInterface& event);
    void notifyOfButtonDoublePressed(MouseEventInterface& event);
    void notifyOfKeyPressed(KeyEventInterface& event);
    void notifyOfKeyReleased(KeyEventInterface& event);
    /// @}
    /// Tells the idle listeners, then gives the engine its turn, and more turns, up to a limit, while
    /// new work came during the last.
    void notifyOfIdle(OnIdleObservableInterface& source);
    /// @{
    /// What the driver of a 3D mouse tells, not while the engine is busy; calls the slots of the signal for it. A
    /// motion gives the engine its turn, too, for there is no idle time before the end of motion.
    void threedMouseMoveEvent(const MotionData& motion);
    void threedMouseStopEvent();
    void threedMouseButtonAction(ButtonActions actions);
    /// @}

    /// The engine has been asked to stop and has not unwound yet; see shouldInterrupt() for whether
    /// the request is in force.
    bool interruptRequested = false;
    /// The next event is not to reach its receiver. One shot: the event filter clears it.
    bool discardNextEvent = false;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
    friend struct MonitorProbe;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
