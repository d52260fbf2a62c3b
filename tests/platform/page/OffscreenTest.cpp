#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

namespace velmora::test {
namespace {

using namespace sdk::integration;
using testing::EngineProbe;

class Offscreen : public EngineFixture {};

TEST_F(Offscreen, TheCurrentFrameFillsTheImage)
{
    load(tableFile());
    FakeImage image(300, 200);
    image.surface.spoil();
    EXPECT_TRUE(image.render(ExportRegion_CurrentFrame)) << VelUtilLastErrorMessage();
    EXPECT_EQ(image.surface.at(0, 0), White);
    EXPECT_EQ(image.surface.at(299, 199), White);
    EXPECT_GT(image.surface.countOther(White), 500);
}

TEST_F(Offscreen, AnEmptyPageIsWhite)
{
    FakeImage image(50, 40);
    image.surface.spoil();
    EXPECT_TRUE(image.render(ExportRegion_CurrentFrame));
    EXPECT_EQ(image.surface.countOther(White), 0);
}

TEST_F(Offscreen, ThePageRegionShowsTheWholePaperInTheMiddle)
{
    load(gridFile());
    FakeImage wide(800, 220); // the paper is upright: it takes 170 x 220 pixels in the middle
    EXPECT_TRUE(wide.render(ExportRegion_Page));
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < 220; ++y)
        for (int x = 0; x < 800; ++x)
            (x >= 315 && x < 485 ? inside : outside) += wide.surface.at(x, y) != White ? 1 : 0;
    EXPECT_GT(inside, 500);
    EXPECT_EQ(outside, 0);
}

TEST_F(Offscreen, TheWorkAreaIsWhatTheScreenShows)
{
    FakeArea area(240, 180);
    load(tableFile());
    show(area);
    VelUtilWorkViewFitPaper();
    VelUtilWorkFinish();
    FakeImage image(240, 180);
    EXPECT_TRUE(image.render(ExportRegion_WorkArea));
    EXPECT_EQ(image.surface.at(1, 1), area.surface.at(1, 1)) << "the workspace";
    EXPECT_NE(image.surface.at(1, 1), White);
    EXPECT_EQ(image.surface.at(120, 20), White) << "the paper";
}

TEST_F(Offscreen, DrawingIsBusyGivesTurnsAndCanBeCancelled)
{
    load(tableFile());
    slowDown();
    FakeImage image(200, 150);
    turns = busyInTurns = notBusyCalls = 0;
    EXPECT_TRUE(image.render(ExportRegion_CurrentFrame));
    EXPECT_GT(turns, 5);
    EXPECT_EQ(busyInTurns, turns);
    EXPECT_EQ(notBusyCalls, 1);
    inTurn = [] { return 1; };
    EXPECT_FALSE(image.render(ExportRegion_CurrentFrame));
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("interrupted"), std::string::npos);
}

TEST_F(Offscreen, AnAreaExposedBetweenTheSlicesDoesNotDisturbTheImage)
{
    load(tableFile());
    FakeImage undisturbed(200, 150);
    EXPECT_TRUE(undisturbed.render(ExportRegion_CurrentFrame));
    FakeArea area(120, 90);
    const int page = show(area);
    slowDown();
    FakeImage image(200, 150);
    inTurn = [page] {
        VelEngPageExpose(page, 0);
        return 0;
    };
    turns = 0;
    EXPECT_TRUE(image.render(ExportRegion_CurrentFrame)) << VelUtilLastErrorMessage();
    EXPECT_GT(turns, 0);
    EXPECT_EQ(image.surface.bytes(), undisturbed.surface.bytes());
}

TEST_F(Offscreen, AViewChangeBetweenTheSlicesEndsTheExportWithAReason)
{
    load(tableFile());
    FakeArea area(120, 90);
    show(area);
    slowDown();
    FakeImage image(200, 150);
    inTurn = [] {
        VelUtilViewZoom(2, 60, 45);
        return 0;
    };
    EXPECT_FALSE(image.render(ExportRegion_CurrentFrame));
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("view was changed"), std::string::npos);
}

TEST_F(Offscreen, FailuresAreReportedAndLeaveTheEngineUsable)
{
    load(tableFile());
    FakeImage image(60, 40);
    image.surface.worksAtAll = false;
    EXPECT_FALSE(image.render(ExportRegion_CurrentFrame));
    EXPECT_STRNE(VelUtilLastErrorMessage(), "");
    image.surface.worksAtAll = true;
    EngineProbe::throwAt("drawing");
    EXPECT_FALSE(image.render(ExportRegion_CurrentFrame));
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_TRUE(image.render(ExportRegion_CurrentFrame));
    EXPECT_EQ(VelEngRenderOffscreenImage(ExportRegion_Page, nullptr), 0);
    VelEngStop();
    EXPECT_FALSE(image.render(ExportRegion_CurrentFrame));
}

} // namespace
} // namespace velmora::test
