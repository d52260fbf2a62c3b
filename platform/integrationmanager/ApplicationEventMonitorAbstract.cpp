#include "integrationmanager/ApplicationEventMonitorAbstract.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/ListenerList.h"
#include "integrationmanager/LiveObject.h"
#include "integrationmanager/MonitorProbe.h"
#include "integrationmanager/OpenDialog.h"
#include "integrationmanager/StopButtonList.h"
#include "interfaces/KeyEventInterface.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "interfaces/StopButtonInterface.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::intern {

namespace {

/// The Escape key in the toolkit's key codes, which key events carry.
constexpr int EscapeKey = 0x01000000;

/// How many turns the engine has at most before the application's own event loop goes on.
constexpr int MostTurnsWhenIdle = 16;

/// What a person does while the engine waits for the answer to a dialog of its own is meant for the
/// dialog: if it were held back, the dialog could not be answered and the engine not go on.
bool engineWaitsForAnAnswer()
{
    return OpenDialog::count() > 0;
}

/// Counts itself up for the life of a scope.
class CountedScope {
public:
    explicit CountedScope(int& count) : m_count(count) { ++m_count; }
    ~CountedScope() { --m_count; }
    CountedScope(const CountedScope&) = delete;
    CountedScope& operator=(const CountedScope&) = delete;

private:
    int& m_count;
};

} // namespace

struct ApplicationEventMonitorAbstract::Impl {
    explicit Impl(ApplicationEventMonitorAbstract& monitor) : owner(monitor), live(monitor) {}

    /// The rules for a press that comes while the engine is busy. After the listeners: one that asks
    /// for the stop makes it the press that interrupts, which is kept and not discarded; and what a
    /// listener lets happen meanwhile is not taken for the press.
    void notePress()
    {
        pressIsPending = owner.isBusy() && !owner.interruptRequested && !engineWaitsForAnAnswer();
        if (pressIsPending)
            owner.discardNextEvent = true;
    }

    ApplicationEventMonitorAbstract& owner;
    LiveObject<ApplicationEventMonitorAbstract> live;
    ListenerList<MouseEventListenerInterface> mouseListeners;
    ListenerList<KeyEventListenerInterface> keyListeners;
    ListenerList<OnIdleListenerInterface> idleListeners;
    StopButtonList stopButtons;
    boost::signals2::scoped_connection noLongerBusy;
    int processing = 0;          ///< how many times the application has its turn, nested
    bool pressIsPending = false; ///< a press was announced while busy, its receiver not yet asked for
    bool stopIsForced = false;   ///< by the probe for tests
};

ApplicationEventMonitorAbstract::ApplicationEventMonitorAbstract(ManagerInterface& /*manager*/)
{
    velmora::testing::EngineProbe::passPoint("ApplicationEventMonitorAbstract");
    m_impl = std::make_unique<Impl>(*this);
    // The engine has one not-busy callback, and that is the toolkit's monitor's own. The first slot
    // of the signal that it emits is called before all others, so none of them sees a request that
    // is over, and work that begins right afterwards is not stopped by it.
    m_impl->noLongerBusy = connectEngineIsNoLongerBusy([this] { interruptRequested = m_impl->stopIsForced; });
}

ApplicationEventMonitorAbstract::~ApplicationEventMonitorAbstract()
{
    noteDestruction("ApplicationEventMonitorAbstract");
}

void ApplicationEventMonitorAbstract::addKeyboardListener(KeyEventListenerInterface* listener)
{
    m_impl->keyListeners.add(listener);
}

void ApplicationEventMonitorAbstract::removeKeyboardListener(KeyEventListenerInterface* listener)
{
    m_impl->keyListeners.remove(listener);
}

void ApplicationEventMonitorAbstract::addMouseListener(MouseEventListenerInterface* listener)
{
    m_impl->mouseListeners.add(listener);
}

void ApplicationEventMonitorAbstract::removeMouseListener(MouseEventListenerInterface* listener)
{
    m_impl->mouseListeners.remove(listener);
}

void ApplicationEventMonitorAbstract::addOnIdleListener(OnIdleListenerInterface* listener)
{
    m_impl->idleListeners.add(listener);
}

void ApplicationEventMonitorAbstract::removeOnIdleListener(OnIdleListenerInterface* listener)
{
    m_impl->idleListeners.remove(listener);
}

void ApplicationEventMonitorAbstract::registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button)
{
    m_impl->stopButtons.add(button);
}

void ApplicationEventMonitorAbstract::unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button)
{
    m_impl->stopButtons.remove(button);
}

bool ApplicationEventMonitorAbstract::isBusy() const
{
    return VelUtilIsBusy() == 1;
}

void ApplicationEventMonitorAbstract::interrupt()
{
    if (!isBusy() || engineWaitsForAnAnswer())
        return;
    interruptRequested = true;
    if (m_impl->processing > 0)
        interruptEventProcessing();
}

bool ApplicationEventMonitorAbstract::shouldInterrupt()
{
    // A monitor that was not told of the end of the work still must not hold events back.
    if (interruptRequested && !m_impl->stopIsForced && !isBusy())
        interruptRequested = false;
    return interruptRequested && !engineWaitsForAnAnswer();
}

bool ApplicationEventMonitorAbstract::isEngineInterruptible() const
{
    return isBusy() && !engineWaitsForAnAnswer() && !m_impl->stopButtons.isAnyInForce();
}

bool ApplicationEventMonitorAbstract::isStopButton(const void* object) const
{
    const bool pressIsPending = m_impl->pressIsPending;
    m_impl->pressIsPending = false;
    if (!m_impl->stopButtons.isInForce(object))
        return false;
    if (pressIsPending)
        m_impl->owner.interrupt();
    return true;
}

bool ApplicationEventMonitorAbstract::processWhileBusy()
{
    {
        const CountedScope turn(m_impl->processing);
        processWhileBusy_Internal();
    }
    return shouldInterrupt();
}

void ApplicationEventMonitorAbstract::notifyOfMouseMoved(MouseEventInterface& event)
{
    m_impl->mouseListeners.notify([&](MouseEventListenerInterface& listener) { listener.mouseMoved(event, *this); });
    emitMouseMoved(event);
}

void ApplicationEventMonitorAbstract::notifyOfButtonPressed(MouseEventInterface& event)
{
    m_impl->mouseListeners.notify([&](MouseEventListenerInterface& listener) { listener.buttonPressed(event, *this); });
    emitButtonPressed(event);
    m_impl->notePress();
}

void ApplicationEventMonitorAbstract::notifyOfButtonReleased(MouseEventInterface& event)
{
    m_impl->mouseListeners.notify(
        [&](MouseEventListenerInterface& listener) { listener.buttonReleased(event, *this); });
    emitButtonReleased(event);
}

void ApplicationEventMonitorAbstract::notifyOfButtonDoublePressed(MouseEventInterface& event)
{
    m_impl->mouseListeners.notify(
        [&](MouseEventListenerInterface& listener) { listener.buttonDoublePressed(event, *this); });
    emitButtonDoublePressed(event);
    m_impl->notePress();
}

void ApplicationEventMonitorAbstract::notifyOfKeyPressed(KeyEventInterface& event)
{
    if (event.key() == EscapeKey && isEngineInterruptible())
        interrupt();
    m_impl->keyListeners.notify([&](KeyEventListenerInterface& listener) { listener.keyPressed(event, *this); });
}

void ApplicationEventMonitorAbstract::notifyOfKeyReleased(KeyEventInterface& event)
{
    m_impl->keyListeners.notify([&](KeyEventListenerInterface& listener) { listener.keyReleased(event, *this); });
}

void ApplicationEventMonitorAbstract::notifyOfIdle(OnIdleObservableInterface& source)
{
    m_impl->idleListeners.notify([&](OnIdleListenerInterface& listener) { listener.onIdle(source); });
    // A listener may have stopped the engine. Input that comes during a turn may leave new work
    // waiting, and when it was the last for a while there is no event to announce idle time after
    // it; hence more than one turn, and a limit, for a host may change its page all the time.
    for (int turn = 0; turn < MostTurnsWhenIdle && VelEngIsRunning() != 0; ++turn)
        if (VelEngTurn() == 0)
            return;
}

void ApplicationEventMonitorAbstract::threedMouseMoveEvent(const MotionData& motion)
{
    emitThreedMouseMotionEvent(motion);
    // Idle time is held back for as long as the device moves, and the person is to see what it does.
    if (VelEngIsRunning() != 0)
        VelEngTurn();
}

void ApplicationEventMonitorAbstract::threedMouseStopEvent()
{
    emitThreedMouseMotionEventEnd();
}

void ApplicationEventMonitorAbstract::threedMouseButtonAction(ButtonActions actions)
{
    emitThreedMouseButtonActionEvent(actions);
}

void MonitorProbe::askToStop(bool stop)
{
    LiveObject<ApplicationEventMonitorAbstract>::forEach([stop](ApplicationEventMonitorAbstract& monitor) {
        monitor.m_impl->stopIsForced = stop;
        monitor.interruptRequested = stop;
    });
}

void MonitorProbe::discardNextEvent(bool discard)
{
    LiveObject<ApplicationEventMonitorAbstract>::forEach(
        [discard](ApplicationEventMonitorAbstract& monitor) { monitor.discardNextEvent = discard; });
}

bool MonitorProbe::isDiscardingNextEvent()
{
    bool discarding = false;
    LiveObject<ApplicationEventMonitorAbstract>::forEach(
        [&discarding](ApplicationEventMonitorAbstract& monitor) { discarding |= monitor.discardNextEvent; });
    return discarding;
}

} // namespace velmora::sdk::integration::intern
