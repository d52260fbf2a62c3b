#include "AllocationCount.h"
#include "FakeEvents.h"
#include "FakeListeners.h"
#include "FakeManager.h"

#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using testing::ElementsAre;
using velmora::testing::EngineProbe;

namespace {

struct MonitorListeners : public testing::Test {
    ~MonitorListeners() override { EngineProbe::reset(); }

    FakeManager manager;
    FakeMonitor& monitor = manager.monitor;
    Log log;
    FakeMouseEvent event;
};

} // namespace

TEST_F(MonitorListeners, EveryMouseEventReachesTheListenersAndThenTheSignal)
{
    FakeMouseListener first("first", log), second("second", log);
    monitor.addMouseListener(&first);
    monitor.addMouseListener(&second);
    const auto slot = [this](const char* name) { return [this, name](MouseEventInterface&) { log.push_back(name); }; };
    monitor.connectMouseMoved(slot("signal moved"));
    monitor.connectButtonPressed(slot("signal pressed"));
    monitor.connectButtonReleased(slot("signal released"));
    monitor.connectButtonDoublePressed(slot("signal double pressed"));

    monitor.notifyOfMouseMoved(event);
    monitor.notifyOfButtonPressed(event);
    monitor.notifyOfButtonReleased(event);
    monitor.notifyOfButtonDoublePressed(event);
    EXPECT_THAT(log, ElementsAre("first moved", "second moved", "signal moved", "first pressed", "second pressed",
                                 "signal pressed", "first released", "second released", "signal released",
                                 "first double pressed", "second double pressed", "signal double pressed"));

    log.clear();
    monitor.removeMouseListener(&first);
    monitor.notifyOfMouseMoved(event);
    EXPECT_THAT(log, ElementsAre("second moved", "signal moved"));
}

TEST_F(MonitorListeners, KeyEventsReachTheKeyListeners)
{
    FakeKeyListener listener("key", log);
    monitor.addKeyboardListener(&listener);
    auto key = keyEvent('A');
    monitor.notifyOfKeyPressed(key);
    monitor.notifyOfKeyReleased(key);
    monitor.removeKeyboardListener(&listener);
    monitor.notifyOfKeyPressed(key);
    EXPECT_THAT(log, ElementsAre("key pressed", "key released"));
}

TEST_F(MonitorListeners, IdleReachesTheIdleListenersWithTheSourceThatWasGiven)
{
    FakeIdleListener listener;
    const OnIdleObservableInterface* source = nullptr;
    listener.action = [&source](OnIdleObservableInterface& idle) { source = &idle; };
    monitor.addOnIdleListener(&listener);
    monitor.addOnIdleListener(&listener);
    monitor.notifyOfIdle(monitor);
    EXPECT_EQ(listener.count, 1);
    EXPECT_EQ(source, static_cast<OnIdleObservableInterface*>(&monitor));
    monitor.removeOnIdleListener(&listener);
    monitor.notifyOfIdle(monitor);
    EXPECT_EQ(listener.count, 1);
}

TEST_F(MonitorListeners, ThreedMouseInputIsPassedOnUnchanged)
{
    MouseEventObservableInterface::MotionData motion;
    motion.rotation[2] = 0.5;
    motion.elapsedMilliseconds = 16;
    const MouseEventObservableInterface::MotionData* seen = nullptr;
    int seenButton = -1;
    monitor.connectThreedMouseMotionEvent([&](const MouseEventObservableInterface::MotionData& data) { seen = &data; });
    monitor.connectThreedMouseMotionEventEnd([this] { log.push_back("end"); });
    monitor.connectThreedMouseButtonActionEvent([&](MouseEventObservableInterface::ButtonActions actions) {
        seenButton = actions.pressed ? actions.button : -2;
    });

    monitor.threedMouseMoveEvent(motion);
    EXPECT_EQ(seen, &motion);
    EXPECT_THAT(log, ElementsAre());
    monitor.threedMouseStopEvent();
    EXPECT_THAT(log, ElementsAre("end"));
    monitor.threedMouseButtonAction({7, true});
    EXPECT_EQ(seenButton, 7);
}

TEST_F(MonitorListeners, AMouseMoveAllocatesNothing)
{
    const long before = allocationCount();
    monitor.notifyOfMouseMoved(event);
    EXPECT_EQ(allocationCount(), before);
}
