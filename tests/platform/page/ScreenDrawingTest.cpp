// What an area shows of its page, and when it is drawn: on exposure, in a turn, after an interruption.
#include "tests/platform/page/ScreenDrawingFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <chrono>

namespace velmora::test {
namespace {

using testing::EngineProbe;

TEST_F(ScreenDrawing, AnExposureShowsTheGroundAndLeavesTheDrawingForATurn)
{
    load(tableFile());
    show(area);
    EXPECT_TRUE(areaIsWhite());
    EXPECT_EQ(area.surface.swaps, 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_GT(turnWishes, 0);
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_FALSE(areaIsWhite());
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_EQ(VelEngTurn(), 0) << "nothing is left to do";
}

TEST_F(ScreenDrawing, AnExposureNeverGivesTheApplicationATurn)
{
    showSlowLines();
    turns = 0;
    for (int i = 0; i < 20; ++i)
        VelEngPageExpose(m_page, 0);
    EXPECT_EQ(turns, 0);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(notBusyCalls, 1) << "only the load was work";
}

TEST_F(ScreenDrawing, ACompletePictureSurvivesWhatHappensToTheWindow)
{
    load(tableFile());
    show(area);
    VelUtilWorkFinish();
    const std::vector<unsigned char> drawn = area.surface.bytes();
    turnWishes = 0;
    area.surface.spoil();
    VelEngPageExpose(m_page = VelEngPageGetActive(), 0);
    EXPECT_EQ(area.surface.bytes(), drawn);
    EXPECT_EQ(turnWishes, 0) << "nothing needs to be drawn for that";
}

TEST_F(ScreenDrawing, AnInterruptedPageStaysIncompleteUntilItIsAskedToFinish)
{
    showSlowLines();
    stopAtOnce();
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    letItGoOn();
    VelEngPageExpose(m_page, 0);
    EXPECT_EQ(VelEngTurn(), 0) << "an exposure does not ask for the rest";
    EXPECT_EQ(VelUtilPageIsInterrupted(), 1);

    turnWishes = 0;
    VelUtilPageFinish();
    EXPECT_EQ(turnWishes, 1);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 0);
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, AViewChangeAfterAnInterruptionDrawsAgain)
{
    showSlowLines();
    stopAtOnce();
    VelEngTurn();
    letItGoOn();
    VelUtilViewZoom(2, 120, 90);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 0);
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, FinishingTellsOfAnInterruption)
{
    showSlowLines();
    stopAtOnce();
    EXPECT_EQ(VelUtilWorkFinish(), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("interrupted"), std::string::npos);
}

TEST_F(ScreenDrawing, ATurnInsideATurnDoesNothingAndIsWishedForAgain)
{
    showSlowLines();
    int inner = 0;
    inTurn = [&] {
        inner += VelEngTurn();
        return 0;
    };
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(inner, 0);

    // The wish came at a time when the engine was busy: it must not be lost.
    turnWishes = 0;
    EngineProbe::setBusy(true);
    VelUtilPageRedraw();
    EXPECT_EQ(turnWishes, 0);
    EXPECT_EQ(VelEngTurn(), 0);
    EngineProbe::setBusy(false);
    EXPECT_EQ(turnWishes, 1);
}

TEST_F(ScreenDrawing, AWishThatWasAnsweredWhileTheEngineWasBusyIsToldAgain)
{
    showSlowLines();
    EXPECT_EQ(turnWishes, 1);
    EngineProbe::setBusy(true);
    EXPECT_EQ(VelEngTurn(), 0);
    EngineProbe::setBusy(false);
    EXPECT_EQ(turnWishes, 2);
}

TEST_F(ScreenDrawing, FinishingInsideATurnIsRefused)
{
    showSlowLines();
    int finished = -1;
    inTurn = [&] {
        finished = VelUtilWorkFinish();
        return 0;
    };
    VelEngTurn();
    EXPECT_EQ(finished, 0);
}

TEST_F(ScreenDrawing, ADrawingThatThrowsLeavesTheEngineUsable)
{
    load(tableFile());
    m_page = show(area);
    EngineProbe::throwAt("drawing");
    notBusyCalls = 0;
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(notBusyCalls, 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("Provoked at drawing."), std::string::npos);
    EXPECT_EQ(VelEngTurn(), 0) << "it is not tried again by itself";

    VelUtilPageRedraw();
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_FALSE(areaIsWhite());
}

TEST_F(ScreenDrawing, AnEmptyPageCanFailToo)
{
    show(area);
    EngineProbe::throwAt("drawing");
    EXPECT_EQ(VelUtilWorkFinish(), 0);
    VelUtilPageRedraw();
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_TRUE(areaIsWhite());
}

TEST_F(ScreenDrawing, AResizedAreaShowsTheOldPictureScaledAndIsDrawnAnewInItsTurn)
{
    load(tableFile());
    m_page = show(area);
    VelUtilWorkFinish();
    area.surface.resize(360, 120);
    VelEngPageExpose(m_page, 1);
    EXPECT_FALSE(areaIsWhite());
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    const std::vector<unsigned char> resized = area.surface.bytes();

    FakeArea fresh(360, 120);
    show(fresh);
    load(tableFile());
    VelUtilWorkFinish();
    EXPECT_EQ(resized, fresh.surface.bytes()) << "it is the picture of that size";
}

TEST_F(ScreenDrawing, ALongDrawingShowsItselfWhileItGrows)
{
    load(tableFile());
    m_page = show(area);
    VelUtilWorkFinish();
    area.surface.swaps = 0;
    setStyle({"Interface", "DrawingDelay"}, 4000);
    VelUtilPageRedraw();
    int swapsInTurns = 0;
    const auto begun = std::chrono::steady_clock::now();
    inTurn = [&] {
        swapsInTurns = area.surface.swaps;
        return 0;
    };
    VelUtilWorkFinish();
    const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - begun;
    EXPECT_TRUE(lasted.count() < 0.3 || swapsInTurns > 0) << lasted.count();
    EXPECT_LE(swapsInTurns, lasted.count() * 10) << "showing costs time, and is for the person only";
    EXPECT_EQ(area.surface.swaps, swapsInTurns + 1);
}

TEST_F(ScreenDrawing, TwoAreasHavePagesOfTheirOwn)
{
    FakeArea second(120, 100);
    load(tableFile());
    const int firstPage = show(area);
    const int secondPage = show(second);
    EXPECT_EQ(firstPage, 1);
    EXPECT_EQ(secondPage, 2);
    EXPECT_EQ(VelEngPageGetActive(), secondPage);
    EXPECT_STREQ(VelUtilDataDescription(), "");
    load(gridFile());
    VelUtilWorkFinish();
    EXPECT_GT(area.surface.countOther(White), 0);
    EXPECT_GT(second.surface.countOther(White), 0);
    const std::string grid = VelUtilDataDescription();
    VelEngPageActivate(firstPage);
    EXPECT_NE(grid, VelUtilDataDescription());
    EXPECT_EQ(VelEngPageAttachDrawArea(&second, nullptr), secondPage) << "an area keeps its page";
    second.detach();
    EXPECT_EQ(show(second), secondPage) << "a page without an area is given again";
}

TEST_F(ScreenDrawing, AnAreaThatIsNotShownIsNotDrawn)
{
    area.visible = false;
    load(tableFile());
    m_page = show(area);
    EXPECT_EQ(area.surface.swaps, 0);
    EXPECT_EQ(VelEngTurn(), 0);
    area.visible = true;
    VelEngPageExpose(m_page, 1);
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, AContextThatCannotBeMadeCurrentIsReported)
{
    load(tableFile());
    m_page = show(area);
    area.surface.worksAtAll = false;
    EXPECT_EQ(VelUtilWorkFinish(), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("OpenGL context"), std::string::npos);
    VelEngPageExpose(m_page, 0);
    area.surface.worksAtAll = true;
    VelUtilPageRedraw();
    EXPECT_EQ(VelUtilWorkFinish(), 1);
}

TEST_F(ScreenDrawing, ANumberThatNoPageHasIsIgnored)
{
    VelEngPageExpose(77, 1);
    VelEngPageDetachDrawArea(77);
    VelEngPageActivate(77);
    EXPECT_EQ(VelEngPageGetActive(), 1);
}

} // namespace
} // namespace velmora::test
