#include "integration/InterruptSuspender.h"

#include "integration/Manager.h"
#include "integration/NullStopButton.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/EventManagerInterface.h"
#include "testing/EngineProbe.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;

namespace {

class InterruptSuspenderTest : public ::testing::Test {
protected:
    InterruptSuspenderTest() { EngineProbe::setBusy(true); }
    ~InterruptSuspenderTest() override { EngineProbe::reset(); }

    static bool isInterruptible()
    {
        return Manager::getInstance().getApplicationEventMonitor().isEngineInterruptible();
    }
};

} // namespace

TEST_F(InterruptSuspenderTest, TheEngineIsNotInterruptibleInsideItsScope)
{
    EXPECT_TRUE(isInterruptible());
    {
        const InterruptSuspender suspender;
        EXPECT_FALSE(isInterruptible());
    }
    EXPECT_TRUE(isInterruptible());
}

TEST_F(InterruptSuspenderTest, NestedScopesStandEachForItself)
{
    auto outer = std::make_unique<InterruptSuspender>();
    auto inner = std::make_unique<InterruptSuspender>();
    inner.reset();
    EXPECT_FALSE(isInterruptible());
    outer.reset();
    EXPECT_TRUE(isInterruptible());
}

TEST_F(InterruptSuspenderTest, ScopesMayEndInAnyOrder)
{
    auto first = std::make_unique<InterruptSuspender>();
    auto second = std::make_unique<InterruptSuspender>();
    first.reset();
    EXPECT_FALSE(isInterruptible());
    second.reset();
    EXPECT_TRUE(isInterruptible());
}

TEST_F(InterruptSuspenderTest, LeavesAnotherStopButtonRegistered)
{
    const boost::shared_ptr<const StopButtonInterface> own = boost::make_shared<NullStopButton>();
    EventManagerInterface& events = Manager::getInstance().getEventManager();
    events.registerStopButton(own);
    {
        const InterruptSuspender suspender;
    }
    EXPECT_FALSE(isInterruptible());
    events.unRegisterStopButton(own);
    EXPECT_TRUE(isInterruptible());
}

TEST(InterruptSuspenderType, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<InterruptSuspender>::value);
    EXPECT_FALSE(std::is_copy_assignable<InterruptSuspender>::value);
}
