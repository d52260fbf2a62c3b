#include "integration/intern/ApplicationEventMonitor.h"

#include "engine/VelEng.h"
#include "integration/intern/ModifierMask.h"
#include "integration/intern/Mouse3DInput.h"
#include "integration/opengl/SurfacelessContext.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QInputEvent>
#include <QMouseEvent>

namespace velmora::sdk::integration::intern {

ApplicationEventMonitor::ApplicationEventMonitor(ManagerInterface& manager)
    : ApplicationEventMonitorAbstract(manager), m_eventFilter(*this), m_eventNotifier(*this)
{}

// Deliberately neither stops nor takes the engine's callback back: the monitor's owner does
// that first, with `stop()`.
ApplicationEventMonitor::~ApplicationEventMonitor() = default;

bool ApplicationEventMonitor::start()
{
    QCoreApplication::instance()->installEventFilter(&m_eventFilter);
    m_eventFilter.setInstalled(true);
    VelEngEngineNotBusyRegisterCallback(&EventFilter::engineNotBusyCallback, reinterpret_cast<long>(&m_eventFilter));
    const Qt::MouseButtons held = QApplication::mouseButtons();
    emitMouseButtonStateChanged(MouseEventInterface::MouseButton_Left, (held & Qt::LeftButton) != 0);
    emitMouseButtonStateChanged(MouseEventInterface::MouseButton_Middle, (held & Qt::MiddleButton) != 0);
    emitMouseButtonStateChanged(MouseEventInterface::MouseButton_Right, (held & Qt::RightButton) != 0);
    return true;
}

bool ApplicationEventMonitor::stop()
{
    // A host may end the engine after its application object; the filter went with that object.
    if (QCoreApplication* const application = QCoreApplication::instance())
        application->removeEventFilter(&m_eventFilter);
    m_eventFilter.setInstalled(false);
    VelEngEngineNotBusyRegisterCallback(nullptr, 0);
    return true;
}

void ApplicationEventMonitor::interrupt()
{
    if (!m_eventFilter.isTellingOfOtherInput())
        ApplicationEventMonitorAbstract::interrupt();
}

bool ApplicationEventMonitor::shouldInterrupt()
{
    // Asked for every event: the flag first, which is what the base looks at first.
    return interruptRequested && ApplicationEventMonitorAbstract::shouldInterrupt() &&
           !m_eventFilter.nestedLoops().isOneRunning();
}

bool ApplicationEventMonitor::isEngineInterruptible() const
{
    return ApplicationEventMonitorAbstract::isEngineInterruptible() && !m_eventFilter.nestedLoops().isOneRunning() &&
           !m_eventFilter.isTellingOfOtherInput();
}

namespace {

/// The application's turn, from the toolkit's point of view.
class Turn {
public:
    explicit Turn(NestedLoops& loops) : m_loops(loops) { m_loops.turnBegins(); }
    ~Turn() { m_loops.turnEnds(); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    NestedLoops& m_loops;
};

} // namespace

void ApplicationEventMonitor::processWhileBusy_Internal()
{
    const Turn turn(m_eventFilter.nestedLoops());
    // An application that paints in its turn could not make its own context current over an image's. The engine
    // makes it current again after each turn, as that of every image.
    SurfacelessContext::releaseCurrent();
    m_eventFilter.deliverParkedEvent();
    // Nothing could come of further events before the waiting one has been sent.
    if (m_eventFilter.hasInterruptedEvent())
        return;
    m_eventFilter.nestedLoops().turnProcessesEvents();
    QCoreApplication::processEvents(QEventLoop::EventLoopExec);
}

void ApplicationEventMonitor::interruptEventProcessing()
{
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->interrupt();
}

ApplicationEventMonitor::operator long() const
{
    return reinterpret_cast<long>(this);
}

MouseEventInterface::MouseButton_e ApplicationEventMonitor::mouseButton(const QMouseEvent& event)
{
    static const MouseEventInterface::MouseButton_e buttons[] = {
        MouseEventInterface::MouseButton_Left,   // Qt::LeftButton, 1
        MouseEventInterface::MouseButton_Right,  // Qt::RightButton, 2
        MouseEventInterface::MouseButton_None,   // both together
        MouseEventInterface::MouseButton_Middle, // Qt::MiddleButton, 4
    };
    // Below 1 wraps around and is outside, too.
    const unsigned index = static_cast<unsigned>(event.button()) - 1u;
    return index < 4u ? buttons[index] : MouseEventInterface::MouseButton_None;
}

int ApplicationEventMonitor::genericModifiersForEvent(const QInputEvent& event)
{
    return modifierMask(event.modifiers());
}

void ApplicationEventMonitor::startThreedMouse(const std::string& deviceName, const QWidget& widget)
{
    threedmouse::startListeningForEvents(
        deviceName, widget, [this](const MotionData& motion) { threedMouseMoveEvent(motion); },
        [this] { threedMouseStopEvent(); }, [this](const ButtonActions& actions) { threedMouseButtonAction(actions); });
}

} // namespace velmora::sdk::integration::intern
