#include "FakeEvents.h"
#include "FakeListeners.h"
#include "FakeManager.h"

#include "interfaces/EventManagerInterface.h"
#include "testing/EngineProbe.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using velmora::testing::EngineProbe;

namespace {

struct MonitorInterrupt : public testing::Test {
    // Started, so that the monitor hears when the engine stops being busy.
    MonitorInterrupt() { monitor.start(); }
    ~MonitorInterrupt() override
    {
        EngineProbe::reset();
        monitor.stop();
    }

    void pressEscape()
    {
        auto escape = keyEvent(EscapeKey);
        monitor.notifyOfKeyPressed(escape);
    }
    /// A press on the way to its receiver; true when it is held back.
    bool pressIsDiscarded(const void* receiver)
    {
        monitor.notifyOfButtonPressed(event);
        return monitor.discards(receiver);
    }

    FakeManager manager;
    FakeMonitor& monitor = manager.monitor;
    EventManagerInterface& buttons = manager.getEventManager();
    FakeMouseEvent event;
    boost::shared_ptr<FakeStopButton> button = boost::make_shared<FakeStopButton>();
    int widget = 0;
};

} // namespace

TEST_F(MonitorInterrupt, InterruptDoesNothingWhenTheEngineIsNotBusy)
{
    monitor.interrupt();
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, TheRequestHoldsUntilTheEngineHasUnwound)
{
    EngineProbe::setBusy(true);
    monitor.interrupt();
    EXPECT_TRUE(monitor.shouldInterrupt());
    EXPECT_TRUE(monitor.processWhileBusy());
    EngineProbe::setBusy(false);
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, WorkThatBeginsRightAfterAnInterruptIsNotStoppedByIt)
{
    EngineProbe::setBusy(true);
    monitor.interrupt();
    EngineProbe::setBusy(false);
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.processWhileBusy());
}

TEST_F(MonitorInterrupt, NoListenerOfTheEndOfWorkSeesARequestThatIsOver)
{
    bool stillAsked = true;
    monitor.connectEngineIsNoLongerBusy([&] {
        EngineProbe::setBusy(true); // work that a listener begins
        stillAsked = monitor.shouldInterrupt();
    });
    EngineProbe::setBusy(true);
    monitor.interrupt();
    EngineProbe::setBusy(false);
    EXPECT_FALSE(stillAsked);
}

TEST_F(MonitorInterrupt, AMonitorThatIsNotToldOfTheEndOfWorkDropsTheRequestByItself)
{
    monitor.stop();
    EngineProbe::setBusy(true);
    monitor.interrupt();
    EXPECT_TRUE(monitor.shouldInterrupt());
    EngineProbe::setBusy(false);
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, AnInterruptDuringTheApplicationsTurnEndsTheTurn)
{
    EngineProbe::setBusy(true);
    monitor.interrupt();
    EXPECT_EQ(monitor.interruptedTurns, 0);
    EngineProbe::setBusy(false);
    EngineProbe::setBusy(true);
    monitor.duringTurn = [this] { monitor.interrupt(); };
    EXPECT_TRUE(monitor.processWhileBusy());
    EXPECT_EQ(monitor.interruptedTurns, 1);
}

TEST_F(MonitorInterrupt, ATurnWithoutARequestLetsTheEngineGoOn)
{
    int turns = 0;
    monitor.duringTurn = [&turns] { ++turns; };
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.processWhileBusy());
    EXPECT_EQ(turns, 1);
}

TEST_F(MonitorInterrupt, EscapeInterruptsOnlyTheBusyEngine)
{
    pressEscape();
    EXPECT_FALSE(monitor.isEngineInterruptible());
    EngineProbe::setBusy(true);
    EXPECT_TRUE(monitor.isEngineInterruptible());
    EXPECT_FALSE(monitor.shouldInterrupt());
    pressEscape();
    EXPECT_TRUE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, OtherKeysAndTheReleaseOfEscapeDoNotInterrupt)
{
    EngineProbe::setBusy(true);
    auto key = keyEvent('Q');
    auto escape = keyEvent(EscapeKey);
    monitor.notifyOfKeyPressed(key);
    monitor.notifyOfKeyReleased(escape);
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, EscapeIsOutOfForceWhileAStopButtonIsActive)
{
    buttons.registerStopButton(button);
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.isEngineInterruptible());
    pressEscape();
    EXPECT_FALSE(monitor.shouldInterrupt());

    button->active = false;
    EXPECT_TRUE(monitor.isEngineInterruptible());
    pressEscape();
    EXPECT_TRUE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, AnUnregisteredStopButtonGivesEscapeBack)
{
    buttons.registerStopButton(button);
    buttons.registerStopButton(button);
    buttons.registerStopButton({});
    buttons.unRegisterStopButton(button);
    EngineProbe::setBusy(true);
    EXPECT_TRUE(monitor.isEngineInterruptible());
    EXPECT_FALSE(monitor.isStopButton(button.get()));
}

TEST_F(MonitorInterrupt, APressWhileBusyDoesNotReachItsWidget)
{
    EXPECT_FALSE(pressIsDiscarded(&widget));
    EngineProbe::setBusy(true);
    EXPECT_TRUE(pressIsDiscarded(&widget));
    monitor.notifyOfButtonDoublePressed(event);
    EXPECT_TRUE(monitor.discards(&widget));
    monitor.notifyOfButtonReleased(event);
    monitor.notifyOfMouseMoved(event);
    EXPECT_FALSE(monitor.isDiscardingNextEvent());
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, APressOnTheStopButtonReachesItAndInterrupts)
{
    buttons.registerStopButton(button);
    EXPECT_FALSE(pressIsDiscarded(button.get()));
    EngineProbe::setBusy(true);
    EXPECT_TRUE(pressIsDiscarded(&widget));
    EXPECT_FALSE(monitor.shouldInterrupt());
    EXPECT_FALSE(pressIsDiscarded(button.get()));
    EXPECT_TRUE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, AskingForAStopButtonWithoutAPressDoesNotInterrupt)
{
    buttons.registerStopButton(button);
    EngineProbe::setBusy(true);
    EXPECT_TRUE(monitor.isStopButton(button.get()));
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, APressOnAnInactiveStopButtonIsLikeAnyOther)
{
    button->active = false;
    buttons.registerStopButton(button);
    EngineProbe::setBusy(true);
    EXPECT_TRUE(pressIsDiscarded(button.get()));
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, AnActiveButtonWithoutAWidgetSuspendsEveryWayToInterrupt)
{
    buttons.registerStopButton(button);
    const auto suspender = boost::make_shared<NoStopButton>();
    buttons.registerStopButton(suspender);
    EngineProbe::setBusy(true);
    pressEscape();
    EXPECT_TRUE(pressIsDiscarded(button.get()));
    EXPECT_FALSE(monitor.shouldInterrupt());

    buttons.unRegisterStopButton(suspender);
    EXPECT_FALSE(pressIsDiscarded(button.get()));
    EXPECT_TRUE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, OfTwoActiveStopButtonsTheOneRegisteredLastIsInForce)
{
    const auto later = boost::make_shared<FakeStopButton>();
    buttons.registerStopButton(button);
    buttons.registerStopButton(later);
    EXPECT_TRUE(monitor.isStopButton(later.get()));
    EXPECT_FALSE(monitor.isStopButton(button.get()));
    later->active = false;
    EXPECT_TRUE(monitor.isStopButton(button.get()));
}

TEST_F(MonitorInterrupt, TheProbeForcesTheRequestBusyOrNot)
{
    EngineProbe::askToStop(true);
    EXPECT_TRUE(monitor.shouldInterrupt());
    EngineProbe::setBusy(true);
    EngineProbe::setBusy(false);
    EXPECT_TRUE(monitor.shouldInterrupt());
    EngineProbe::askToStop(false);
    EXPECT_FALSE(monitor.shouldInterrupt());
}

TEST_F(MonitorInterrupt, TheProbeReachesEveryMonitorAndItsResetUndoesIt)
{
    FakeMonitor other(manager);
    {
        const FakeMonitor passing(manager);
    }
    EngineProbe::discardNextEvent();
    EXPECT_TRUE(monitor.isDiscardingNextEvent());
    EXPECT_TRUE(other.isDiscardingNextEvent());
    EXPECT_TRUE(monitor.discards(&widget));
    EXPECT_TRUE(EngineProbe::isDiscardingNextEvent());
    EXPECT_TRUE(other.discards(&widget));
    EXPECT_FALSE(EngineProbe::isDiscardingNextEvent());

    EngineProbe::discardNextEvent();
    EngineProbe::askToStop(true);
    EngineProbe::reset();
    EXPECT_FALSE(EngineProbe::isDiscardingNextEvent());
    EXPECT_FALSE(other.shouldInterrupt());
}

TEST_F(MonitorInterrupt, AnEventDiscardedByTheProbeDoesNotInterruptOverAStopButton)
{
    buttons.registerStopButton(button);
    EngineProbe::setBusy(true);
    EngineProbe::discardNextEvent();
    EXPECT_FALSE(monitor.discards(button.get()));
    EXPECT_FALSE(monitor.shouldInterrupt());
}
