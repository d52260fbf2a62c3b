// What an area shows of its page, and when it is drawn: on exposure, in a turn, after an interruption.
#include "tests/platform/page/ScreenDrawingFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <array>
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

    // The request came at a time when the engine was busy: it must not be lost.
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
    VelUtilWorkFinish();
    EXPECT_EQ(finished, 0);
}

TEST_F(ScreenDrawing, FinishingWhileAPictureIsRefinedDrawsItThereAndThen)
{
    showSlowLines();
    int finished = -1;
    int turnsOfTheRefinement = 0;
    inTurn = [&] {
        if (++turnsOfTheRefinement > 1)
            return 0;
        inTurn = [] { return 0; };
        finished = VelUtilWorkFinish();
        EXPECT_EQ(VelUtilPageIsComplete(), 1);
        turns = 0;
        return 0;
    };
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(turns, 0) << "there was nothing left to refine";
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, APictureWhoseRefinementIsHeldUpByAnEventLoopIsDrawnWithinThatLoop)
{
    showSlowLines();
    int early = -1;
    int late = 0;
    inTurn = [&] {
        inTurn = [] { return 0; };
        early = VelEngTurn();
        const auto begun = std::chrono::steady_clock::now();
        while (late == 0 && std::chrono::steady_clock::now() - begun < std::chrono::seconds(10))
            late = VelEngTurn();
        EXPECT_EQ(VelUtilPageIsComplete(), 1);
        return 0;
    };
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(early, 0) << "the refinement goes on in a moment";
    EXPECT_EQ(late, 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
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

TEST_F(ScreenDrawing, AWholePictureIsShownAtOnceAndReplacedOnceByTheFullOne)
{
    load(gridFile());
    slowDown();
    m_page = show(area);
    area.surface.swaps = 0;
    std::vector<unsigned char> coarse;
    bool stays = true;
    inTurn = [&] {
        if (coarse.empty())
            coarse = area.surface.bytes();
        stays = stays && area.surface.swaps == 1 && area.surface.bytes() == coarse;
        return 0;
    };
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_TRUE(stays);
    EXPECT_EQ(area.surface.swaps, 2);
    // From the title at the top to the axes at the bottom, and from the axes at the left to the colour bar.
    for (const auto& [x1, y1, x2, y2] : {std::array{80, 160, 160, 180}, std::array{30, 30, 140, 60},
                                         std::array{188, 60, 210, 130}, std::array{60, 60, 180, 130}}) {
        int ink = 0;
        for (int y = y1; y < y2; ++y)
            for (int x = x1; x < x2; ++x) {
                const std::size_t pixel = (static_cast<std::size_t>(y) * 240 + static_cast<std::size_t>(x)) * 4;
                ink += coarse[pixel] + coarse[pixel + 1] + coarse[pixel + 2] < 700 ? 1 : 0;
            }
        EXPECT_GT(ink, 20) << x1 << ' ' << y1;
    }
    EXPECT_NE(area.surface.bytes(), coarse);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, EachChangeInTheMiddleOfARefinementIsShownAtOnce)
{
    load(gridFile());
    slowDown();
    m_page = show(area);
    std::vector<std::vector<unsigned char>> shown;
    inTurn = [&] {
        if (shown.size() < 5) {
            shown.push_back(area.surface.bytes());
            VelUtilViewRotate(20, 0);
        }
        return 0;
    };
    EXPECT_EQ(turnUntilDone(), 6);
    for (std::size_t i = 1; i < shown.size(); ++i)
        EXPECT_NE(shown[i], shown[i - 1]) << i;
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
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

TEST_F(ScreenDrawing, OtherDataGiveBackTheGeometryOfTheDataBefore)
{
    load(gridFile());
    m_page = show(area);
    ASSERT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_GT(area.surface.countBuffers(), 0);
    load(tableFile());
    ASSERT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_EQ(area.surface.countBuffers(), 0);
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
