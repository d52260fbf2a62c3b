#include "base/TimerAbstract.h"

#include "interfaces/TimerListenerInterface.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using velmora::sdk::util::TimerAbstract;
using velmora::sdk::util::TimerInterface;
using velmora::sdk::util::TimerListenerInterface;

namespace {

/// A timer whose platform the test plays.
class ManualTimer : public TimerAbstract {
public:
    using TimerAbstract::internalTimeout;

    std::vector<std::string> calls;
    bool hasTimers = true;

protected:
    bool internalStart(int milliseconds) override
    {
        calls.push_back("start " + std::to_string(milliseconds));
        return hasTimers;
    }
    void internalStop() override { calls.emplace_back("stop"); }
};

class Listener : public TimerListenerInterface {
public:
    explicit Listener(std::function<void(TimerInterface&)> action = {}) : m_action(std::move(action)) {}

    void timeout(TimerInterface& timer) override
    {
        ++count;
        if (m_action)
            m_action(timer);
    }

    int count = 0;

private:
    std::function<void(TimerInterface&)> m_action;
};

} // namespace

TEST(TimerAbstract, StartsWithNeitherIntervalNorRunning)
{
    const ManualTimer timer;
    EXPECT_EQ(0, timer.getInterval());
    EXPECT_FALSE(timer.isRunning());
}

TEST(TimerAbstract, StartsThePlatformsTimer)
{
    ManualTimer timer;
    EXPECT_TRUE(timer.start(40));
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(40, timer.getInterval());
    EXPECT_THAT(timer.calls, ElementsAre("start 40"));
}

TEST(TimerAbstract, IsNotRunningWhenThePlatformHasNoTimer)
{
    ManualTimer timer;
    timer.hasTimers = false;
    EXPECT_FALSE(timer.start(40));
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(40, timer.getInterval());
}

TEST(TimerAbstract, RefusesANegativeIntervalAndStops)
{
    ManualTimer timer;
    timer.start(40);
    EXPECT_FALSE(timer.start(-1));
    EXPECT_FALSE(timer.isRunning());
    EXPECT_THAT(timer.calls, ElementsAre("start 40", "stop"));
}

TEST(TimerAbstract, AnIntervalOfZeroIsAllowed)
{
    ManualTimer timer;
    EXPECT_TRUE(timer.start(0));
    EXPECT_TRUE(timer.isRunning());
}

TEST(TimerAbstract, ARestartStopsThePlatformsTimerFirst)
{
    ManualTimer timer;
    timer.start(40);
    EXPECT_TRUE(timer.start(50));
    EXPECT_EQ(50, timer.getInterval());
    EXPECT_THAT(timer.calls, ElementsAre("start 40", "stop", "start 50"));
}

TEST(TimerAbstract, StopsThePlatformsTimerOnce)
{
    ManualTimer timer;
    timer.start(40);
    timer.stop();
    timer.stop();
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(40, timer.getInterval());
    EXPECT_THAT(timer.calls, ElementsAre("start 40", "stop"));
}

TEST(TimerAbstract, StoppingATimerThatNeverRanCallsNothing)
{
    ManualTimer timer;
    timer.stop();
    EXPECT_THAT(timer.calls, IsEmpty());
}

TEST(TimerAbstract, EveryTimeoutReachesTheListenersInTheirOrder)
{
    ManualTimer timer;
    std::string order;
    Listener a([&order](TimerInterface&) { order += 'a'; });
    Listener b([&order](TimerInterface&) { order += 'b'; });
    timer.addListener(&b);
    timer.addListener(&a);
    timer.start(40);
    timer.internalTimeout();
    timer.internalTimeout();
    EXPECT_EQ("baba", order);
    EXPECT_TRUE(timer.isRunning());
}

TEST(TimerAbstract, NoTimeoutIsHeardWhileItIsNotRunning)
{
    ManualTimer timer;
    Listener listener;
    timer.addListener(&listener);
    timer.internalTimeout();
    timer.start(40);
    timer.stop();
    timer.internalTimeout();
    EXPECT_EQ(0, listener.count);
}

TEST(TimerAbstract, AListenerAddedTwiceHearsOnceAndNullIsIgnored)
{
    ManualTimer timer;
    Listener listener;
    timer.addListener(&listener);
    timer.addListener(&listener);
    timer.addListener(nullptr);
    timer.removeListener(nullptr);
    timer.start(40);
    timer.internalTimeout();
    EXPECT_EQ(1, listener.count);
    timer.removeListener(&listener);
    timer.internalTimeout();
    EXPECT_EQ(1, listener.count);
}

TEST(TimerAbstract, AListenerMayStopTheTimerAndTheOthersStillHearThisTimeout)
{
    ManualTimer timer;
    Listener stopper([](TimerInterface& t) { t.stop(); });
    Listener other;
    timer.addListener(&stopper);
    timer.addListener(&other);
    timer.start(40);
    timer.internalTimeout();
    timer.internalTimeout();
    EXPECT_EQ(1, stopper.count);
    EXPECT_EQ(1, other.count);
}

TEST(TimerAbstract, AListenerDestroyedDuringATimeoutIsNotTouched)
{
    ManualTimer timer;
    auto victim = std::make_unique<Listener>();
    Listener remover([&victim](TimerInterface& t) {
        t.removeListener(victim.get());
        victim.reset();
    });
    timer.addListener(&remover);
    timer.addListener(victim.get());
    timer.start(40);
    timer.internalTimeout();
    timer.internalTimeout();
    EXPECT_EQ(2, remover.count);
}

TEST(TimerAbstract, AListenerMayRemoveItselfAndTheNextStillHears)
{
    ManualTimer timer;
    Listener once;
    Listener self([&self](TimerInterface& t) { t.removeListener(&self); });
    timer.addListener(&self);
    timer.addListener(&once);
    timer.start(40);
    timer.internalTimeout();
    EXPECT_EQ(1, self.count);
    EXPECT_EQ(1, once.count);
    timer.internalTimeout();
    EXPECT_EQ(1, self.count);
    EXPECT_EQ(2, once.count);
}

TEST(TimerAbstract, AListenerAddedDuringATimeoutHearsTheNextOne)
{
    ManualTimer timer;
    Listener late;
    Listener adder([&late](TimerInterface& t) { t.addListener(&late); });
    timer.addListener(&adder);
    timer.start(40);
    timer.internalTimeout();
    EXPECT_EQ(0, late.count);
    timer.internalTimeout();
    EXPECT_EQ(1, late.count);
}
