#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <GL/osmesa.h>

#include <chrono>
#include <memory>

namespace velmora::test {
namespace {

/// An entry point of the software OpenGL.
template <typename Function>
Function* entry(const char* name)
{
    return reinterpret_cast<Function*>(OSMesaGetProcAddress(name));
}

void scaleModelMatrix()
{
    entry<void(GLenum)>("glMatrixMode")(GL_MODELVIEW);
    entry<void(GLfloat, GLfloat, GLfloat)>("glScalef")(3, 0.5F, 1);
}

/// What a careless painter leaves behind in a context.
void paintCarelessly()
{
    scaleModelMatrix();
    entry<void(GLint, GLint, GLsizei, GLsizei)>("glViewport")(5, 5, 20, 20);
    entry<void(GLint, GLint, GLsizei, GLsizei)>("glScissor")(5, 5, 20, 20);
    entry<void(GLenum)>("glEnable")(GL_SCISSOR_TEST);
    entry<void(GLboolean, GLboolean, GLboolean, GLboolean)>("glColorMask")(GL_TRUE, GL_FALSE, GL_FALSE, GL_TRUE);
    entry<void(GLenum, GLuint)>("glBindFramebuffer")(GL_FRAMEBUFFER, 0);
    entry<void(GLfloat)>("glLineWidth")(7);
}

std::vector<double> modelMatrix()
{
    std::vector<double> matrix(16);
    entry<void(GLenum, GLdouble*)>("glGetDoublev")(GL_MODELVIEW_MATRIX, matrix.data());
    return matrix;
}

using testing::EngineProbe;

class ScreenDrawing : public EngineFixture {
protected:
    /// Stops the engine in its next turn.
    void stopAtOnce()
    {
        inTurn = [] { return 1; };
    }
    void letItGoOn()
    {
        inTurn = [] { return 0; };
    }
    /// A page with lines, slow to draw, shown but not drawn.
    void showSlowLines()
    {
        load(tableFile());
        slowDown();
        m_page = show(area);
    }
    bool areaIsWhite() const { return area.surface.countOther(White) == 0; }

    FakeArea area{240, 180};
    int m_page = 0;
};

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

TEST_F(ScreenDrawing, AnExposureInMidDrawingShowsWhatThereIsAndTheDrawingGoesOnAsIfNothingHadHappened)
{
    load(tableFile());
    m_page = show(area);
    VelUtilWorkFinish();
    const std::vector<unsigned char> undisturbed = area.surface.bytes();

    slowDown();
    VelUtilPageRedraw();
    inTurn = [this] {
        area.surface.spoil();
        VelEngPageExpose(m_page, 0);
        EXPECT_NE(area.surface.at(0, 0), (Pixel{0x77, 0x77, 0x77}));
        return 0;
    };
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_EQ(area.surface.bytes(), undisturbed);
}

TEST_F(ScreenDrawing, AnotherAreaPaintedInMidDrawingDoesNotDisturbThePicture)
{
    load(tableFile());
    m_page = show(area);
    VelUtilWorkFinish();
    const std::vector<unsigned char> undisturbed = area.surface.bytes();
    FakeArea other(90, 70);
    const int otherPage = show(other);
    VelUtilWorkFinish();

    VelEngPageActivate(m_page);
    slowDown();
    VelUtilPageRedraw();
    inTurn = [&] {
        VelEngPageExpose(otherPage, 0);
        return 0;
    };
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_GT(turns, 0);
    EXPECT_EQ(area.surface.bytes(), undisturbed);
    EXPECT_EQ(other.surface.countOther(White), 0);
}

TEST_F(ScreenDrawing, WhateverTheApplicationPaintsInItsTurnTheDrawingFindsItsStateAsItWas)
{
    load(tableFile());
    m_page = show(area);
    VelUtilWorkFinish();
    const std::vector<unsigned char> undisturbed = area.surface.bytes();
    setStyle({"Interface", "DrawingDelay"}, 5000); // so that every portion is a slice of its own
    VelUtilPageRedraw();
    turns = 0;
    inTurn = [this] {
        area.surface.setCurrentGL();
        paintCarelessly();
        return 0;
    };
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_GT(turns, 16) << "more than an attribute stack holds";
    EXPECT_EQ(area.surface.bytes(), undisturbed);
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

TEST_F(ScreenDrawing, AViewChangeInMidDrawingMakesItObsoleteAndThePageWaitsAgain)
{
    showSlowLines();
    turns = 0;
    inTurn = [] {
        VelUtilViewZoom(1.5, 100, 100);
        return 0;
    };
    turnWishes = 0;
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(turns, 1) << "the obsolete drawing goes no further";
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 0);
    EXPECT_EQ(turnWishes, 1);
    letItGoOn();
    EXPECT_EQ(turnUntilDone(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ScreenDrawing, ALoadInMidDrawingReplacesThePictureSafely)
{
    const std::string other = gridFile();
    showSlowLines();
    inTurn = [&] {
        letItGoOn();
        load(other);
        return 0;
    };
    VelEngTurn();
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_NE(std::string(VelUtilDataDescription()).find("120 x 120"), std::string::npos) << VelUtilDataDescription();
    turnUntilDone();
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
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

TEST_F(ScreenDrawing, AnAreaThatIsDetachedInMidDrawingEndsItSafely)
{
    load(tableFile());
    slowDown();
    auto leaving = std::make_unique<FakeArea>(240, 180);
    const int page = show(*leaving);
    turns = 0;
    inTurn = [&] {
        leaving.reset();
        return 0;
    };
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(VelEngTurn(), 0) << "there is no area to draw in";

    letItGoOn();
    show(area);
    EXPECT_EQ(VelEngPageGetActive(), page) << "the page and its data are still there";
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_FALSE(areaIsWhite());
}

TEST_F(ScreenDrawing, AnAreaThatLeavesInMidDrawingDoesNotHarmTheOneThatIsCurrentThen)
{
    FakeArea other(90, 70);
    load(tableFile());
    const int otherPage = show(other);
    VelUtilWorkFinish();
    const std::vector<unsigned char> drawn = other.surface.bytes();

    m_page = show(area);
    load(tableFile());
    slowDown();
    inTurn = [&] {
        area.detach();
        area.valid = false;
        VelEngPageExpose(otherPage, 0);
        scaleModelMatrix();
        return 0;
    };
    VelEngTurn();
    EXPECT_EQ(modelMatrix()[0], 3) << "the drawing that ended has left the other context alone";
    letItGoOn();
    VelEngPageExpose(otherPage, 0);
    EXPECT_EQ(other.surface.bytes(), drawn);
    VelEngPageActivate(otherPage);
    setStyle({"Interface", "DrawingDelay"}, 0);
    VelUtilPageRedraw();
    VelUtilWorkFinish();
    EXPECT_EQ(other.surface.bytes(), drawn);
}

TEST_F(ScreenDrawing, StoppingTheEngineInMidDrawingIsSafe)
{
    showSlowLines();
    inTurn = [] {
        VelEngStop();
        return 0;
    };
    VelEngTurn();
    EXPECT_EQ(VelEngIsRunning(), 0);
    EXPECT_EQ(VelUtilIsBusy(), 0);
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

TEST_F(ScreenDrawing, AResizeInMidDrawingDrawsForTheNewSize)
{
    showSlowLines();
    inTurn = [this] {
        letItGoOn();
        area.surface.resize(300, 100);
        VelEngPageExpose(m_page, 1);
        return 0;
    };
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_FALSE(areaIsWhite());
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
