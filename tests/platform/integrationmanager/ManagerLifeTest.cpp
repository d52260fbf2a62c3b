#include "FakeArea.h"
#include "FakeListeners.h"
#include "FakeManager.h"

#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "interfaces/PageManagerInterface.h"
#include "testing/EngineProbe.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <set>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using velmora::testing::EngineProbe;

namespace {

struct ManagerLife : public testing::Test {
    ManagerLife()
    {
        manager.log = &log;
        manager.monitor.log = &log;
        manager.connectEngineStarted([this] { noteWithState("started"); });
        manager.connectEngineShutdownInitiated([this] { noteWithState("shutting down"); });
        manager.connectEngineShutdownFinished([this] { noteWithState("shut down"); });
    }
    ~ManagerLife() override
    {
        EngineProbe::reset();
        manager.stop();
    }

    void noteWithState(const std::string& what)
    {
        log.push_back(what + (VelEngIsRunning() != 0 ? ", running" : ", not running"));
    }
    void initAndStart()
    {
        ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
        ASSERT_EQ(manager.start(), ManagerStartReturnCode_Ok);
        log.clear();
    }

    Log log;
    FakeManager manager;
};

} // namespace

TEST_F(ManagerLife, StartNeedsInit)
{
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_NotInitialized);
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ManagerLife, StartBringsEverythingUpInOrder)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    EXPECT_EQ(VelEngIsRunning(), 0);
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_Ok);
    EXPECT_THAT(log, ElementsAre("instantiate", "register", "monitor start", "started, running"));
}

TEST_F(ManagerLife, StopTakesEverythingDownInTheReverseOrder)
{
    initAndStart();
    manager.stop();
    EXPECT_THAT(log, ElementsAre("shutting down, running", "monitor stop", "destroy", "shut down, not running"));
    log.clear();
    manager.stop();
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ManagerLife, StopWithoutAStartDoesNothing)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    manager.stop();
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ManagerLife, ASecondStartIsRefusedUntilStop)
{
    initAndStart();
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_AlreadyStarted);
    EXPECT_EQ(manager.initWith(), ManagerStartReturnCode_AlreadyStarted);
    manager.stop();
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_Ok);
    EXPECT_EQ(VelEngIsRunning(), 1);
}

TEST_F(ManagerLife, AnEngineThatRunsAlreadyCannotBeStarted)
{
    initAndStart();
    FakeManager other;
    ASSERT_EQ(other.initWith(), ManagerStartReturnCode_Ok);
    EXPECT_EQ(other.start(), ManagerStartReturnCode_EngineFailed);
    other.stop();
    EXPECT_EQ(VelEngIsRunning(), 1);
}

TEST_F(ManagerLife, InitRefusesABrokenCommandLine)
{
    char* const noArguments[] = {nullptr};
    EXPECT_EQ(manager.init(-1, noArguments, "", ""), ManagerStartReturnCode_BadArgument);
    EXPECT_EQ(manager.init(0, nullptr, "", ""), ManagerStartReturnCode_BadArgument);
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_NotInitialized);
    EXPECT_EQ(manager.init(0, noArguments, "", StateModernizationLevel_None, ""), ManagerStartReturnCode_Ok);
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_Ok);
}

TEST_F(ManagerLife, BatchModeIsAskedForOnTheCommandLine)
{
    EXPECT_FALSE(manager.isInBatchMode());
    manager.initWith({"host", "file", "-b"});
    EXPECT_TRUE(manager.isInBatchMode());
    manager.initWith({"-b", "-batch", "b"});
    EXPECT_FALSE(manager.isInBatchMode());
}

TEST_F(ManagerLife, EveryReturnCodeHasItsOwnText)
{
    std::set<std::string> texts;
    for (int code = ManagerStartReturnCode_Ok; code <= ManagerStartReturnCode_EngineFailed; ++code)
        texts.insert(manager.returnCodeString(static_cast<ManagerStartReturnCode_e>(code)));
    EXPECT_EQ(texts.size(), 5u);
    EXPECT_EQ(texts.count(""), 0u);
    EXPECT_EQ(manager.returnCodeString(static_cast<ManagerStartReturnCode_e>(7)), "Unknown return code 7.");
}

TEST_F(ManagerLife, AFailureWhileStartingLeavesTheEngineStopped)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    manager.monitor.duringStart = [] { throw velmora::ExceptionBase("no events", false); };
    EXPECT_THROW(manager.start(), velmora::ExceptionBase);
    EXPECT_EQ(VelEngIsRunning(), 0);
    manager.monitor.duringStart = nullptr;
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_Ok);
}

TEST_F(ManagerLife, AStartWhoseSlotThrowsLeavesTheEngineStoppedAndTellsOfItsEnd)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    const Connection failing = manager.connectEngineStarted([] { throw velmora::ExceptionBase("no pages", false); });
    EXPECT_THROW(manager.start(), velmora::ExceptionBase);
    EXPECT_EQ(VelEngIsRunning(), 0);
    EXPECT_THAT(log, ElementsAre("instantiate", "register", "monitor start", "started, running",
                                 "shutting down, running", "monitor stop", "destroy", "shut down, not running"));
    failing.disconnect();
    EXPECT_EQ(manager.start(), ManagerStartReturnCode_Ok);
    EXPECT_EQ(VelEngIsRunning(), 1);
}

TEST_F(ManagerLife, AStartThatFailsThrowsWhatFailedFirst)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    const auto fail = [](const char* message) { return [message] { throw velmora::ExceptionBase(message, false); }; };
    manager.connectEngineStarted(fail("first"));
    manager.connectEngineShutdownInitiated(fail("second"));
    manager.connectEngineShutdownFinished(fail("third"));
    testing::internal::CaptureStderr();
    try {
        manager.start();
        ADD_FAILURE() << "the start did not fail";
    } catch (const velmora::ExceptionBase& exception) {
        EXPECT_EQ(exception.message(), "first");
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), AllOf(HasSubstr("undone: second"), HasSubstr("undone: third")));
    EXPECT_EQ(VelEngIsRunning(), 0);
}

TEST_F(ManagerLife, ASlotThatStopsTheEngineAndThrowsHasItStoppedOnce)
{
    ASSERT_EQ(manager.initWith(), ManagerStartReturnCode_Ok);
    manager.connectEngineStarted([this] {
        manager.stop();
        throw velmora::ExceptionBase("no pages", false);
    });
    EXPECT_THROW(manager.start(), velmora::ExceptionBase);
    EXPECT_EQ(VelEngIsRunning(), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "shut down, not running"), 1);
}

TEST_F(ManagerLife, StopWhileTheEngineIsBusyInterruptsItAndFollowsAtTheNextIdle)
{
    initAndStart();
    EngineProbe::setBusy(true);
    manager.stop();
    EXPECT_THAT(log, ElementsAre());
    EXPECT_EQ(VelEngIsRunning(), 1);
    EXPECT_TRUE(manager.monitor.shouldInterrupt());

    EngineProbe::setBusy(false);
    EXPECT_EQ(VelEngIsRunning(), 1) << "the engine is still on the call stack when it tells that it is not busy";
    manager.monitor.notifyOfIdle(manager.monitor);
    EXPECT_EQ(VelEngIsRunning(), 0);
    log.clear();
    manager.monitor.notifyOfIdle(manager.monitor);
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ManagerLife, AStopThatIsRepeatedOnceTheEngineHasUnwoundIsDoneAtOnceAndOnlyOnce)
{
    initAndStart();
    EngineProbe::setBusy(true);
    manager.stop();
    EngineProbe::setBusy(false);
    manager.stop();
    EXPECT_EQ(VelEngIsRunning(), 0);
    ASSERT_EQ(manager.start(), ManagerStartReturnCode_Ok);
    manager.monitor.notifyOfIdle(manager.monitor);
    EXPECT_EQ(VelEngIsRunning(), 1) << "the request to stop belonged to the run before";
}

TEST_F(ManagerLife, StopFromAShutdownListenerDoesNotRecur)
{
    initAndStart();
    manager.connectEngineShutdownInitiated([this] { manager.stop(); });
    manager.stop();
    EXPECT_THAT(log, ElementsAre("shutting down, running", "monitor stop", "destroy", "shut down, not running"));
}

TEST_F(ManagerLife, AnEngineStoppedAtIdleIsNotGivenATurn)
{
    initAndStart();
    FakeIdleListener listener;
    listener.action = [this](OnIdleObservableInterface&) { manager.stop(); };
    manager.monitor.addOnIdleListener(&listener);
    manager.monitor.notifyOfIdle(manager.monitor);
    EXPECT_EQ(VelEngIsRunning(), 0);
    manager.monitor.removeOnIdleListener(&listener);
}

namespace {

/// Counts how often the engine wants a turn: it says so once from one turn to the next.
void countRequest(long clientData)
{
    ++*reinterpret_cast<int*>(clientData);
}

} // namespace

TEST_F(ManagerLife, IdleListenersAreToldBeforeTheEngineHasItsTurn)
{
    initAndStart();
    FakeArea area;
    area.valid = true;
    manager.getPageManager().attachDrawArea(area);
    manager.monitor.notifyOfIdle(manager.monitor);
    int requests = 0;
    VelEngTurnRequestedRegisterCallback(&countRequest, reinterpret_cast<long>(&requests));
    FakeIdleListener listener;
    listener.action = [](OnIdleObservableInterface&) { VelUtilPageRedraw(); };
    manager.monitor.addOnIdleListener(&listener);

    VelUtilPageRedraw();
    EXPECT_EQ(requests, 1);
    manager.monitor.notifyOfIdle(manager.monitor);
    EXPECT_EQ(requests, 1) << "the listener's work came before the turn, which did it all";
    VelUtilPageRedraw();
    EXPECT_EQ(requests, 2) << "there was a turn";

    VelEngTurnRequestedRegisterCallback(nullptr, 0);
    manager.monitor.removeOnIdleListener(&listener);
    manager.getPageManager().detachDrawArea(area);
}

TEST_F(ManagerLife, TheEndOfManagerAndMonitorIsLogged)
{
    EngineProbe::startLog();
    {
        const FakeManager passing;
    }
    EXPECT_THAT(EngineProbe::log(), ElementsAre("~ApplicationEventMonitorAbstract", "~ManagerAbstract"));
}

TEST_F(ManagerLife, AConstructorThatFailsLeavesNothingBehind)
{
    for (const char* point : {"ManagerAbstract", "ApplicationEventMonitorAbstract"}) {
        EngineProbe::throwAt(point);
        EXPECT_THROW(FakeManager(), velmora::ExceptionBase) << point;
        EXPECT_NO_THROW(FakeManager()) << point;
    }
}

namespace {

void exitWithARunningEngine()
{
    static FakeManager manager;
    manager.initWith();
    manager.start();
    std::exit(0);
}

} // namespace

TEST(ManagerAtProcessExit, AManagerThatWasNeverStoppedIsDestroyedQuietly)
{
    EXPECT_EXIT(exitWithARunningEngine(), testing::ExitedWithCode(0), "^$");
}
