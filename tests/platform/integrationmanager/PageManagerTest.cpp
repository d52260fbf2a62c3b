#include "FakeArea.h"
#include "FakeManager.h"

#include "exception/ExceptionBase.h"
#include "integrationmanager/GLDrawAreaPageTracker.h"
#include "interfaces/PageInterface.h"
#include "interfaces/PageManagerInterface.h"
#include "testing/EngineProbe.h"

#include <gtest/gtest.h>
#include <memory>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using velmora::testing::EngineProbe;

namespace {

struct PageManagerOfTheEngine : public testing::Test {
    PageManagerOfTheEngine()
    {
        manager->initWith();
        manager->start();
    }
    ~PageManagerOfTheEngine() override
    {
        EngineProbe::reset();
        if (manager)
            manager->stop();
    }

    FakeArea area, other;
    std::unique_ptr<FakeManager> manager = std::make_unique<FakeManager>();
    PageManagerInterface& pages = manager->getPageManager();
};

} // namespace

TEST_F(PageManagerOfTheEngine, AnAreaKeepsThePageThatItHas)
{
    PageInterface& page = pages.attachDrawArea(area);
    EXPECT_GT(page.pageNumber(), 0);
    EXPECT_EQ(page.getDrawArea(), &area);
    EXPECT_EQ(&pages.attachDrawArea(area), &page);
    EXPECT_EQ(pages.pageOf(area), &page);
}

TEST_F(PageManagerOfTheEngine, EachAreaHasAPageOfItsOwnAndTheFocusedOneIsActive)
{
    const int first = pages.attachDrawArea(area).pageNumber();
    const int second = pages.attachDrawArea(other).pageNumber();
    EXPECT_NE(first, second);
    EXPECT_EQ(VelEngPageGetActive(), second);
    pages.activateDrawArea(area);
    EXPECT_EQ(VelEngPageGetActive(), first);
}

TEST_F(PageManagerOfTheEngine, ADetachedAreaHasNoPageAndThePageWaitsForTheNextArea)
{
    const int number = pages.attachDrawArea(area).pageNumber();
    pages.detachDrawArea(area);
    EXPECT_EQ(pages.pageOf(area), nullptr);
    pages.detachDrawArea(area);
    EXPECT_EQ(pages.attachDrawArea(other).pageNumber(), number);
}

TEST_F(PageManagerOfTheEngine, AnAreaWithoutAPageIsNeitherExposedNorActivated)
{
    const int number = pages.attachDrawArea(area).pageNumber();
    pages.exposeDrawArea(other, true);
    pages.activateDrawArea(other);
    EXPECT_EQ(VelEngPageGetActive(), number);
}

TEST_F(PageManagerOfTheEngine, AManagerThatWasNotStartedHasNoPageEvenIfAnotherManagersEngineRuns)
{
    FakeManager idle;
    EXPECT_THROW(idle.getPageManager().attachDrawArea(area), velmora::ExceptionBase);
    EXPECT_EQ(idle.getPageManager().pageOf(area), nullptr);
}

TEST_F(PageManagerOfTheEngine, StoppingTheEngineGivesTheAreaBackToTheToolkit)
{
    intern::GLDrawAreaPageTracker tracker(area);
    tracker.setPageManager(pages);
    EXPECT_EQ(tracker.state(), 1);
    manager->stop();
    EXPECT_EQ(tracker.state(), 0);
    EXPECT_EQ(area.listenersRemoved, 1);
    EXPECT_EQ(pages.pageOf(area), nullptr);
    EXPECT_THROW(tracker.setPageManager(pages), velmora::ExceptionBase) << "the engine does not run";

    manager->start();
    tracker.setPageManager(pages);
    EXPECT_EQ(tracker.state(), 1);
}

TEST_F(PageManagerOfTheEngine, ATrackerMayOutliveTheManagerOfAStoppedEngine)
{
    intern::GLDrawAreaPageTracker tracker(area);
    tracker.setPageManager(pages);
    manager->stop();
    manager.reset();
    area.states.notifyOfExposure(true);
    area.states.notifyOfDestruction();
    EXPECT_EQ(tracker.state(), 0);
}

TEST_F(PageManagerOfTheEngine, ATrackerForgetsAManagerThatDiesWithoutAStop)
{
    auto second = std::make_unique<FakeManager>();
    manager->stop();
    second->initWith();
    ASSERT_EQ(second->start(), ManagerStartReturnCode_Ok);
    intern::GLDrawAreaPageTracker tracker(area);
    tracker.setPageManager(second->getPageManager());
    const int number = VelEngPageGetActive();
    second.reset();
    EXPECT_EQ(tracker.state(), 0);
    area.states.notifyOfExposure(true);
    area.states.notifyOfDestruction();
    VelEngPageDetachDrawArea(number);
    VelEngStop();
}
