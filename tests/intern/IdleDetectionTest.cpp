// Finding out that the application has nothing left to do.

#include "tests/intern/MonitorFixture.h"

#include "tests/support/Wait.h"

#include <algorithm>

namespace {

// What the library asks whether a 3D mouse is in motion. The library's own always answers no; this
// one takes its place in this program.
bool g_threedMouseMoves = false;

} // namespace

namespace velmora::sdk::threedmouse {

__attribute__((visibility("default"))) bool isProcessingThreedMouseEvents()
{
    return g_threedMouseMoves;
}

} // namespace velmora::sdk::threedmouse

using namespace velmora::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class IdleDetection : public MonitorTest {
protected:
    IdleDetection() { watch(); }
    ~IdleDetection() override { g_threedMouseMoves = false; }

    void sendTrigger()
    {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&widget, &event);
    }
    /// As the toolkit does when the timer's turn comes.
    void fireTimer(int id)
    {
        QTimerEvent event(id);
        QCoreApplication::sendEvent(&Probe::filter(monitor), &event);
    }
    int timesIdle() const { return static_cast<int>(std::count(journal.begin(), journal.end(), "idle")); }
    void callBack() { Monitor::EventFilter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor))); }
};

} // namespace

TEST_F(IdleDetection, TheFirstEventOnlyStartsTheTimer)
{
    EXPECT_FALSE(Probe::idleTimerRuns(monitor));
    EXPECT_EQ(Probe::idleTimer(monitor), 0);
    sendTrigger();
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
    EXPECT_THAT(journal, Not(Contains("idle")));
}

TEST_F(IdleDetection, TheToolkitsOwnTimerAnnouncesIdle)
{
    sendTrigger();
    EXPECT_TRUE(waitUntil([&] { return timesIdle() > 0; }));
}

TEST_F(IdleDetection, EachStretchOfActivityIsFollowedByOneAnnouncement)
{
    for (int stretch = 1; stretch <= 3; ++stretch) {
        sendTrigger();
        sendTrigger();
        const int id = Probe::idleTimer(monitor);
        fireTimer(id);
        EXPECT_EQ(timesIdle(), stretch);
        EXPECT_FALSE(Probe::idleTimerRuns(monitor));
        EXPECT_EQ(Probe::idleTimer(monitor), -1);
    }
}

TEST_F(IdleDetection, AnotherTimerNeverAnnouncesIdle)
{
    sendTrigger();
    fireTimer(Probe::idleTimer(monitor) + 1);
    EXPECT_EQ(timesIdle(), 0);
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
}

TEST_F(IdleDetection, AMovingThreedMouseHoldsTheAnnouncementBack)
{
    sendTrigger();
    g_threedMouseMoves = true;
    fireTimer(Probe::idleTimer(monitor));
    EXPECT_EQ(timesIdle(), 0);
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
    g_threedMouseMoves = false;
    fireTimer(Probe::idleTimer(monitor));
    EXPECT_EQ(timesIdle(), 1);
}

TEST_F(IdleDetection, AnEventSeenWhileBusyStopsTheTimer)
{
    sendTrigger();
    monitor.busy = true;
    sendTrigger();
    EXPECT_FALSE(Probe::idleTimerRuns(monitor));
    EXPECT_EQ(Probe::idleTimer(monitor), -1);
    EXPECT_TRUE(Probe::idleTimerWasKilled(monitor));
    EXPECT_EQ(timesIdle(), 0);
}

TEST_F(IdleDetection, BusyWithoutATimerLeavesNothingToBringBack)
{
    monitor.busy = true;
    sendTrigger();
    EXPECT_FALSE(Probe::idleTimerWasKilled(monitor));
    callBack();
    EXPECT_FALSE(Probe::idleTimerRuns(monitor));
}

TEST_F(IdleDetection, TheEnginesCallbackBringsTheTimerBackAndAnnouncesEachTimeOnce)
{
    sendTrigger();
    monitor.busy = true;
    sendTrigger();
    monitor.busy = false;
    journal.clear();
    callBack();
    EXPECT_THAT(journal, ElementsAre("not busy"));
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
    EXPECT_FALSE(Probe::idleTimerWasKilled(monitor));
    callBack();
    EXPECT_THAT(journal, ElementsAre("not busy", "not busy"));
}

TEST_F(IdleDetection, AnEventBeforeTheCallbackStartsTheOnlyTimer)
{
    sendTrigger();
    monitor.busy = true;
    sendTrigger();
    monitor.busy = false;
    sendTrigger();
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
    EXPECT_TRUE(Probe::idleTimerWasKilled(monitor));
    const int id = Probe::idleTimer(monitor);
    callBack();
    EXPECT_FALSE(Probe::idleTimerWasKilled(monitor));
    // A second timer would be an orphan that fires for ever.
    EXPECT_EQ(Probe::idleTimer(monitor), id);
}

TEST_F(IdleDetection, TheTimerIsBroughtBackOnlyWhenItWasStopped)
{
    auto& filter = Probe::filter(monitor);
    filter.restartIdleDetectionTimerIfItWasKilledWhileBusy();
    EXPECT_FALSE(Probe::idleTimerRuns(monitor));
    sendTrigger();
    monitor.busy = true;
    sendTrigger();
    monitor.busy = false;
    filter.restartIdleDetectionTimerIfItWasKilledWhileBusy();
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
}

TEST_F(IdleDetection, TheCopyOfAnInterruptingEventDoesNotStartTheTimer)
{
    monitor.busy = true;
    monitor.interrupting = true;
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    monitor.busy = false;
    monitor.interrupting = false;
    bool runsDuringTheCopy = true;
    widget.onEvent = [&](QEvent& event) {
        if (event.type() == QEvent::KeyRelease)
            runsDuringTheCopy = Probe::idleTimerRuns(monitor);
    };
    sendTrigger();
    EXPECT_FALSE(runsDuringTheCopy);
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
}

TEST_F(IdleDetection, TheEndOfTheWorkIsEnoughForAnEventThatWaits)
{
    monitor.busy = true;
    monitor.interrupting = true;
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    ASSERT_FALSE(Probe::idleTimerRuns(monitor));
    monitor.busy = false;
    monitor.interrupting = false;
    callBack();
    EXPECT_TRUE(waitUntil([&] { return !received().empty(); }));
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
}

TEST_F(IdleDetection, ATimerThatStillRunsWhenTheMonitorStopsEndsWithItsNextEvent)
{
    sendTrigger();
    ASSERT_TRUE(Probe::idleTimerRuns(monitor));
    monitor.stop();
    EXPECT_TRUE(Probe::idleTimerRuns(monitor));
    EXPECT_TRUE(waitUntil([&] { return !Probe::idleTimerRuns(monitor); }));
    monitor.start();
}
