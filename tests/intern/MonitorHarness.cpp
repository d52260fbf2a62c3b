#include "tests/intern/MonitorHarness.h"

#include "interfaces/KeyEventInterface.h"
#include "interfaces/ManagerInterface.h"
#include "interfaces/MouseWheelEventInterface.h"
#include "tests/support/WheelEvents.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTimerEvent>
#include <QWheelEvent>
#include <map>
#include <sstream>
#include <stdexcept>

// The name that the toolkit lets send an event as from the window system.
bool qt_sendSpontaneousEvent(QObject* receiver, QEvent* event)
{
    return QCoreApplication::sendSpontaneousEvent(receiver, event);
}

namespace velmora::test {

using namespace velmora::sdk::integration;

namespace {

class NoManager : public ManagerInterface {
public:
    PageManagerInterface& getPageManager() override { throw std::logic_error("no page manager"); }
    EventManagerInterface& getEventManager() override { throw std::logic_error("no event manager"); }
    DialogManagerInterface& getDialogManager() override { throw std::logic_error("no dialog manager"); }
    ServiceRepositoryInterface& getServiceRepository() override { throw std::logic_error("no repository"); }
    std::string returnCodeString(ManagerStartReturnCode_e) override { return std::string(); }
    ManagerStartReturnCode_e init(int, char* const*, std::string, std::string) override { return {}; }
    ManagerStartReturnCode_e init(int, char* const*, std::string, StateModernizationLevel_e, std::string) override
    {
        return {};
    }
    ManagerStartReturnCode_e start() override { return {}; }
    void stop() override {}
    bool isInBatchMode() const override { return false; }
};

ManagerInterface& noManager()
{
    static NoManager manager;
    return manager;
}

std::string describeMouse(const QMouseEvent& event)
{
    std::ostringstream text;
    text << ' ' << event.button() << " at " << event.pos().x() << ',' << event.pos().y();
    return text.str();
}

// The types that tests look at. A name for each; what else there is to say depends on its kind.
const std::map<int, const char*>& typeNames()
{
    static const std::map<int, const char*> names = {
        {QEvent::MouseButtonPress, "MouseButtonPress"},
        {QEvent::MouseButtonRelease, "MouseButtonRelease"},
        {QEvent::MouseButtonDblClick, "MouseButtonDblClick"},
        {QEvent::MouseMove, "MouseMove"},
        {QEvent::KeyPress, "KeyPress"},
        {QEvent::KeyRelease, "KeyRelease"},
        {QEvent::ShortcutOverride, "ShortcutOverride"},
        {QEvent::Wheel, "Wheel"},
        {QEvent::Timer, "Timer"},
        {QEvent::Close, "Close"},
        {QEvent::Shortcut, "Shortcut"},
        {QEvent::User, "User"},
        {QEvent::User + 1, "User+1"},
    };
    return names;
}

std::string details(const QEvent& event)
{
    if (const auto* mouse = dynamic_cast<const QMouseEvent*>(&event))
        return describeMouse(*mouse);
    if (const auto* key = dynamic_cast<const QKeyEvent*>(&event))
        return ' ' + std::to_string(key->key());
    if (const auto* wheel = dynamic_cast<const QWheelEvent*>(&event))
        return ' ' + std::to_string(wheelFacts(*wheel).delta);
    return std::string();
}

} // namespace

std::string describe(const QEvent& event)
{
    const auto name = typeNames().find(event.type());
    if (name == typeNames().end())
        return std::string();
    return name->second + details(event) + (event.spontaneous() ? " from X" : "");
}

SteeredMonitor::SteeredMonitor() : Monitor(noManager()) {}

SteeredMonitor::~SteeredMonitor()
{
    stop();
}

PlainMonitor::PlainMonitor() : Monitor(noManager()) {}

PlainMonitor::~PlainMonitor()
{
    stop();
}

bool SteeredMonitor::shouldInterrupt()
{
    if (whenAsked)
        whenAsked(timesAsked);
    ++timesAsked;
    return interrupting && !Probe::filter(*this).nestedLoops().isOneRunning();
}

Listening::Listening(Monitor& monitor, Journal& journal) : m_monitor(monitor), m_journal(journal)
{
    m_monitor.addMouseListener(this);
    m_monitor.addKeyboardListener(this);
    m_monitor.addOnIdleListener(this);
    connectSignals();
}

Listening::~Listening()
{
    m_monitor.removeMouseListener(this);
    m_monitor.removeKeyboardListener(this);
    m_monitor.removeOnIdleListener(this);
}

void Listening::connectSignals()
{
    using Info = ApplicationEventMonitorInterface::EventReceiverInfo;
    m_connections.emplace_back(
        m_monitor.connectMouseButtonStateChanged([this](MouseEventInterface::MouseButton_e button, bool pressed) {
            m_journal.push_back("state " + std::to_string(button) + (pressed ? " down" : " up"));
        }));
    m_connections.emplace_back(
        m_monitor.connectWidgetChangeDuetoTimerEvent([this] { m_journal.push_back("widget change"); }));
    m_connections.emplace_back(m_monitor.connectProcessingNewEvent([this](const Info& info) {
        m_journal.push_back(info.receiverIsVisibleWidget ? "new, visible" : "new, not visible");
    }));
    m_connections.emplace_back(m_monitor.connectEngineIsNoLongerBusy([this] { m_journal.push_back("not busy"); }));
    m_connections.emplace_back(m_monitor.connectWheelRotated([this](MouseWheelEventInterface& event) {
        std::ostringstream text;
        text << "wheel " << event.delta() << " at " << event.x() << ',' << event.y() << " orientation "
             << event.orientation() << " held " << event.isLeftButtonDown() << event.isMiddleButtonDown()
             << event.isRightButtonDown() << " modifiers " << event.keyboardModifiers();
        m_journal.push_back(text.str());
    }));
}

void Listening::note(const char* what, const MouseEventInterface& event)
{
    std::ostringstream text;
    text << what << ' ' << event.button() << " at " << event.x() << ',' << event.y() << " modifiers "
         << event.keyboardModifiers();
    m_journal.push_back(text.str());
}

void Listening::note(const char* what, const KeyEventInterface& event)
{
    std::ostringstream text;
    text << what << ' ' << event.key() << " modifiers " << event.keyboardModifiers();
    m_journal.push_back(text.str());
}

void Listening::mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&)
{
    note("moved", event);
}

void Listening::buttonPressed(MouseEventInterface& event, MouseEventObservableInterface&)
{
    note("pressed", event);
}

void Listening::buttonReleased(MouseEventInterface& event, MouseEventObservableInterface&)
{
    note("released", event);
}

void Listening::buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface&)
{
    note("double pressed", event);
}

void Listening::keyPressed(KeyEventInterface& event, KeyEventObservableInterface&)
{
    note("key down", event);
    if (onKeyPressed)
        onKeyPressed();
}

void Listening::keyReleased(KeyEventInterface& event, KeyEventObservableInterface&)
{
    note("key up", event);
}

void Listening::onIdle(OnIdleObservableInterface&)
{
    m_journal.push_back("idle");
}

bool sendSpontaneous(QObject& receiver, QEvent& event)
{
    return qt_sendSpontaneousEvent(&receiver, &event);
}

} // namespace velmora::test
