#include "tests/intern/ThreedMouseFixture.h"

#include "engine/VelUtil.h"
#include "interfaces/OnIdleObservableInterface.h"

#include <algorithm>

namespace velmora::test {

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;

namespace {

constexpr int MostTurns = 100000;

void startEngineOnce()
{
    static bool started = false;
    if (started)
        return;
    static char name[] = "host";
    static char* arguments[] = {name, nullptr};
    Manager::getInstance().init(1, arguments, std::string(), "host");
    started = Manager::getInstance().start() == ManagerStartReturnCode_Ok;
}

} // namespace

ThreedMouse::ThreedMouse()
{
    startEngineOnce();
    EngineProbe::reset();
    window->setGeometry(100, 100, 300, 200);
    EXPECT_TRUE(showAndWait(*window));
    focusWindow(*window);
    EXPECT_TRUE(waitUntil([&] { return QApplication::activeWindow() == window.get(); }));
    MouseEventObservableInterface& mouse = monitor();
    m_motion = mouse.connectThreedMouseMotionEvent([this](const MotionData& motion) {
        EXPECT_FALSE(VelUtilIsBusy());
        heard.push_back("motion");
        motions.push_back(motion);
        if (onMotion)
            onMotion();
    });
    m_end = mouse.connectThreedMouseMotionEventEnd([this] { heard.push_back("end"); });
    m_button = mouse.connectThreedMouseButtonActionEvent([this](ButtonActions action) {
        heard.push_back((action.pressed ? "down " : "up ") + std::to_string(action.button));
    });
    monitor().addOnIdleListener(this);
}

ThreedMouse::~ThreedMouse()
{
    EngineProbe::reset();
    killDaemon();
    monitor().removeOnIdleListener(this);
}

intern::ApplicationEventMonitorAbstract& ThreedMouse::monitor()
{
    return dynamic_cast<intern::ApplicationEventMonitorAbstract&>(manager().getApplicationEventMonitor());
}

void ThreedMouse::connectTo(int protocol)
{
    daemon = std::make_unique<SpacenavDaemon>(protocol);
    ASSERT_EQ(startListening(), sdk::threedmouse::DeviceState_Connected);
    ASSERT_TRUE(daemon->waitForClient());
}

void ThreedMouse::killDaemon()
{
    if (!daemon)
        return;
    daemon->kill();
    EXPECT_TRUE(waitUntil([] { return sdk::threedmouse::deviceState() != sdk::threedmouse::DeviceState_Connected; }));
}

bool ThreedMouse::workUntil(const std::function<bool()>& condition)
{
    for (int turn = 0; turn < MostTurns && !condition(); ++turn)
        monitor().processWhileBusy();
    return condition();
}

int ThreedMouse::timesHeard(const std::string& entry) const
{
    return static_cast<int>(std::count(heard.begin(), heard.end(), entry));
}

bool ThreedMouse::waitForIdle()
{
    const int before = timesIdle;
    QCoreApplication::postEvent(window.get(), new QEvent(QEvent::User)); // the queue owns it
    return waitUntil([&] { return timesIdle > before; });
}

void ThreedMouse::sendMark()
{
    constexpr int NumberOfMark = 77;
    daemon->sendButton(NumberOfMark, true);
    daemon->sendButton(NumberOfMark, false);
}

} // namespace velmora::test
