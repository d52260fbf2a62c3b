#include "FakeArea.h"
#include "Log.h"

#include "exception/ExceptionBase.h"
#include "integrationmanager/GLDrawAreaPageTracker.h"
#include "interfaces/PageInterface.h"
#include "interfaces/PageManagerInterface.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>
#include <memory>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using testing::ElementsAre;
using velmora::testing::EngineProbe;

namespace {

/// A page manager that only notes what it is asked for.
struct NotingPageManager : public PageManagerInterface {
    NotingPageManager(std::string managerName, Log& callLog) : name(std::move(managerName)), log(callLog) {}

    PageInterface& attachDrawArea(GLDrawAreaInterface&) override
    {
        log.push_back(name + " attach");
        if (refuses)
            throw velmora::ExceptionBase("no page", false);
        return page;
    }
    void detachDrawArea(GLDrawAreaInterface&) override { log.push_back(name + " detach"); }
    void exposeDrawArea(GLDrawAreaInterface&, bool sizeChanged) override
    {
        log.push_back(name + (sizeChanged ? " expose resized" : " expose"));
    }
    void activateDrawArea(GLDrawAreaInterface&) override { log.push_back(name + " activate"); }
    PageInterface* pageOf(const GLDrawAreaInterface&) const override { return nullptr; }

    struct FirstPage : public PageInterface {
        GLDrawAreaInterface* getDrawArea() const override { return nullptr; }
        int pageNumber() const override { return 1; }
    };
    std::string name;
    Log& log;
    FirstPage page;
    bool refuses = false;
};

struct PageTracker : public testing::Test {
    ~PageTracker() override { EngineProbe::reset(); }

    Log log;
    NotingPageManager pages{"one", log};
    FakeArea area;
    std::unique_ptr<intern::GLDrawAreaPageTracker> tracker = std::make_unique<intern::GLDrawAreaPageTracker>(area);
};

} // namespace

TEST_F(PageTracker, TheStateIsSetWhileAManagerHasTheArea)
{
    EXPECT_EQ(tracker->state(), 0);
    EXPECT_EQ(area.listenersAdded, 0);
    tracker->setPageManager(pages);
    EXPECT_EQ(tracker->state(), 1);
    EXPECT_THAT(log, ElementsAre("one attach"));
    area.states.notifyOfDestruction();
    EXPECT_EQ(tracker->state(), 0);
    EXPECT_EQ(area.listenersAdded, 1);
    EXPECT_EQ(area.listenersRemoved, 1);
}

TEST_F(PageTracker, ExposureFocusAndTheEndOfTheAreaGoToTheManager)
{
    tracker->setPageManager(pages);
    area.states.notifyOfExposure(true);
    area.states.notifyOfExposure(false);
    area.states.notifyOfFocusGained();
    area.states.notifyOfDestruction();
    area.states.notifyOfExposure(true);
    area.states.notifyOfFocusGained();
    tracker.reset();
    EXPECT_THAT(log, ElementsAre("one attach", "one expose resized", "one expose", "one activate", "one detach"));
}

TEST_F(PageTracker, TheSameManagerAgainChangesNothing)
{
    tracker->setPageManager(pages);
    tracker->setPageManager(pages);
    area.states.notifyOfExposure(false);
    EXPECT_THAT(log, ElementsAre("one attach", "one expose"));
}

TEST_F(PageTracker, AnotherManagerTakesTheAreaOver)
{
    NotingPageManager others("two", log);
    tracker->setPageManager(pages);
    tracker->setPageManager(others);
    area.states.notifyOfExposure(false);
    EXPECT_EQ(tracker->state(), 1);
    tracker.reset();
    EXPECT_THAT(log, ElementsAre("one attach", "one detach", "two attach", "two expose", "two detach"));
}

TEST_F(PageTracker, DestroyingAnAttachedTrackerDetachesTheArea)
{
    tracker->setPageManager(pages);
    tracker.reset();
    area.states.notifyOfExposure(true);
    EXPECT_THAT(log, ElementsAre("one attach", "one detach"));
    EXPECT_EQ(area.listenersRemoved, 1);
}

TEST_F(PageTracker, AManagerThatHasNoPageLeavesTheAreaToTheToolkit)
{
    pages.refuses = true;
    EXPECT_THROW(tracker->setPageManager(pages), velmora::ExceptionBase);
    EXPECT_EQ(tracker->state(), 0);
    tracker.reset();
    EXPECT_THAT(log, ElementsAre("one attach"));
}

TEST_F(PageTracker, TheProbeSetsTheStateOfEveryTracker)
{
    FakeArea otherArea;
    intern::GLDrawAreaPageTracker other(otherArea);
    tracker->setPageManager(pages);
    EngineProbe::setPageTrackerState(0);
    EXPECT_EQ(tracker->state(), 0);
    EngineProbe::setPageTrackerState(3);
    EXPECT_EQ(other.state(), 3);
    EngineProbe::setPageTrackerState(-1);
    EXPECT_EQ(tracker->state(), 1);
    EXPECT_EQ(other.state(), 0);
    EngineProbe::setPageTrackerState(2);
    EngineProbe::reset();
    EXPECT_EQ(other.state(), 0);
}
