// A context without framebuffer objects, as a distant or old server has it: the page is drawn
// straight into the area. A program of its own, because Mesa reads these settings once a process.

#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <cstdlib>

namespace velmora::test {
namespace {

const bool hidden = [] {
    setenv("MESA_GL_VERSION_OVERRIDE", "2.1", 1);
    setenv("MESA_EXTENSION_OVERRIDE", "-GL_ARB_framebuffer_object", 1);
    return true;
}();

class DirectDrawing : public EngineFixture {
protected:
    bool areaIsWhite() const { return area.surface.countOther(White) == 0; }

    FakeArea area{200, 150};
};

TEST_F(DirectDrawing, AnExposureDrawsTheWholePictureAndGivesNoTurns)
{
    ASSERT_TRUE(hidden);
    load(tableFile());
    slowDown();
    turns = 0;
    show(area);
    EXPECT_FALSE(areaIsWhite());
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_EQ(turns, 0);
    EXPECT_EQ(VelEngTurn(), 0);
    const std::vector<unsigned char> drawn = area.surface.bytes();
    area.surface.spoil();
    VelEngPageExpose(area.page, 0);
    EXPECT_EQ(area.surface.bytes(), drawn);
}

TEST_F(DirectDrawing, AViewChangeIsDrawnInTheNextTurn)
{
    load(tableFile());
    show(area);
    const std::vector<unsigned char> before = area.surface.bytes();
    VelUtilViewZoom(3, 100, 75);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    notBusyCalls = 0;
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_GE(notBusyCalls, 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_NE(area.surface.bytes(), before);
}

TEST_F(DirectDrawing, WhileTheEngineWorksAnExposureShowsTheGroundAndThePageIsDrawnLater)
{
    load(tableFile());
    show(area);
    EXPECT_EQ(VelEngTurn(), 0) << "the exposure has done everything already";
    testing::EngineProbe::setBusy(true);
    turnWishes = 0;
    VelEngPageExpose(area.page, 0);
    EXPECT_TRUE(areaIsWhite());
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    testing::EngineProbe::setBusy(false);
    EXPECT_EQ(turnWishes, 1);
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_FALSE(areaIsWhite());
}

TEST_F(DirectDrawing, ADrawingThatThrowsDoesNotLeaveTheExposure)
{
    load(tableFile());
    testing::EngineProbe::throwAt("drawing");
    show(area);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("Provoked at drawing."), std::string::npos);
    VelUtilPageRedraw();
    EXPECT_EQ(VelUtilWorkFinish(), 1);
}

} // namespace
} // namespace velmora::test
