#include "util/Timer.h"

#include "interfaces/TimerListenerInterface.h"
#include "tests/support/Wait.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

using velmora::sdk::util::Timer;
using velmora::sdk::util::TimerInterface;
using velmora::sdk::util::TimerListenerInterface;
using namespace velmora::test;

namespace {

/// Opens the platform's two operations to the test.
class OpenTimer : public Timer {
public:
    using Timer::internalStart;
    using Timer::internalStop;
};

class Counting : public TimerListenerInterface {
public:
    void timeout(TimerInterface& timer) override
    {
        ++count;
        if (stops)
            timer.stop();
    }
    int count = 0;
    bool stops = false;
};

} // namespace

TEST(Timer, TimesOutAgainAndAgain)
{
    Timer timer;
    Counting listener;
    timer.addListener(&listener);
    EXPECT_TRUE(timer.start(1));
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(timer.getInterval(), 1);
    EXPECT_TRUE(waitUntil([&] { return listener.count >= 3; }));
}

TEST(Timer, KeepsItsInterval)
{
    Timer timer;
    Counting listener;
    timer.addListener(&listener);
    QElapsedTimer clock;
    clock.start();
    timer.start(30);
    EXPECT_TRUE(waitUntil([&] { return listener.count >= 3; }));
    // The toolkit may fire a coarse timer up to a twentieth early.
    EXPECT_GE(clock.elapsed(), 80);
}

TEST(Timer, StoppedByItsListenerFiresNoMore)
{
    Timer timer;
    Timer other;
    Counting listener;
    Counting later;
    listener.stops = true;
    timer.addListener(&listener);
    other.addListener(&later);
    timer.start(0);
    other.start(0);
    EXPECT_TRUE(waitUntil([&] { return later.count >= 10; }));
    EXPECT_EQ(listener.count, 1);
    EXPECT_FALSE(timer.isRunning());
}

TEST(Timer, StartsAgainAfterAStopWithAnotherInterval)
{
    Timer timer;
    Counting listener;
    timer.addListener(&listener);
    timer.start(100000);
    timer.stop();
    timer.start(0);
    EXPECT_EQ(timer.getInterval(), 0);
    EXPECT_TRUE(waitUntil([&] { return listener.count >= 1; }));
}

TEST(Timer, ANewStartReplacesTheRunningOne)
{
    Timer timer;
    Counting listener;
    timer.addListener(&listener);
    timer.start(0);
    timer.start(100000);
    Timer other;
    Counting later;
    other.addListener(&later);
    other.start(0);
    EXPECT_TRUE(waitUntil([&] { return later.count >= 10; }));
    EXPECT_EQ(listener.count, 0);
}

TEST(Timer, IsRefusedWhereTheToolkitHasNoEventLoop)
{
    bool started = true;
    bool running = true;
    // A thread that the toolkit knows nothing of.
    std::thread([&] {
        OpenTimer timer;
        started = timer.internalStart(1);
        running = timer.start(1) || timer.isRunning();
    }).join();
    EXPECT_FALSE(started);
    EXPECT_FALSE(running);
}

TEST(Timer, DestroyedWhileRunningNeverFiresAgain)
{
    Counting listener;
    auto timer = std::make_unique<Timer>();
    timer->addListener(&listener);
    timer->start(0);
    timer.reset();
    Timer other;
    Counting later;
    other.addListener(&later);
    other.start(0);
    EXPECT_TRUE(waitUntil([&] { return later.count >= 10; }));
    EXPECT_EQ(listener.count, 0);
}

TEST(Timer, StoppingOrDestroyingAStoppedOneKillsNothing)
{
    // The toolkit complains on standard error about a timer that it does not know.
    ::testing::internal::CaptureStderr();
    {
        OpenTimer timer;
        timer.internalStop();
        timer.start(100000);
        timer.stop();
        timer.internalStop();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}
