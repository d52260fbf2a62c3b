// What happens in mid-drawing, when the application has its turn, and what becomes of the drawing.
#include "tests/platform/page/ScreenDrawingFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <memory>

namespace velmora::test {
namespace {

/// An entry point of the software OpenGL; it is the same for all its contexts.
template <typename Function>
Function* entry(const char* name)
{
    static const std::unique_ptr<SoftwareContext> any = SoftwareContext::create();
    return any->function<Function>(name);
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
    load(gridFile());
    area.surface.resize(700, 500);
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

} // namespace
} // namespace velmora::test
