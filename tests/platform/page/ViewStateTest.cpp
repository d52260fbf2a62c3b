// Views that a host keeps and gives back, and looks of surfaces.

#include "tests/platform/page/EngineFixture.h"

#include "engine/VelUtil.h"

#include <string>

namespace velmora::test {
namespace {

class ViewState : public EngineFixture {
protected:
    static std::string state() { return VelUtilViewState(); }
    static std::string errorOf(int result)
    {
        EXPECT_EQ(result, 0);
        return VelUtilLastErrorMessage();
    }

    FakeArea area{300, 220};
};

TEST_F(ViewState, OfLinesComesBackWithRangesAndScales)
{
    load(tableFile());
    show(area);
    VelUtilWorkFinish();
    const std::string linear = state();
    ASSERT_EQ(VelUtilAxisSetLogarithmic(0, 1), 1) << VelUtilLastErrorMessage();
    VelUtilViewZoom(3, 130, 80);
    const std::string zoomed = state();
    EXPECT_NE(linear, zoomed);
    EXPECT_EQ(VelUtilViewSetState(linear.c_str()), 1);
    EXPECT_EQ(state(), linear);
    EXPECT_EQ(VelUtilAxisIsLogarithmic(0), 0);
    EXPECT_EQ(VelUtilViewSetState(zoomed.c_str()), 1);
    EXPECT_EQ(state(), zoomed);
    EXPECT_EQ(VelUtilAxisIsLogarithmic(0), 1);
}

TEST_F(ViewState, OfASurfaceComesBackWithItsDirection)
{
    load(hillFile());
    show(area);
    VelUtilWorkFinish();
    VelUtilViewRotate(33.3, -7.1);
    VelUtilViewZoom(1.7, 100, 90);
    const std::string turned = state();
    ASSERT_EQ(VelUtilViewFrom(0), 1);
    const std::string map = state();
    EXPECT_NE(turned, map);
    EXPECT_EQ(VelUtilViewSetState(turned.c_str()), 1);
    EXPECT_EQ(state(), turned);
    EXPECT_EQ(VelUtilViewSetState(map.c_str()), 1);
    EXPECT_EQ(state(), map);
}

TEST_F(ViewState, IsRefusedWhereItIsNone)
{
    EXPECT_EQ(state(), "");
    EXPECT_NE(errorOf(VelUtilViewSetState("")).find("no view"), std::string::npos);
    load(tableFile());
    const std::string lines = state();
    for (const char* const text :
         {"", "lines", "lines 0 1 0 1 0", "lines 0 1 0 1 0 0 0", "lines 1 0 0 1 0 0", "lines 0 nan 0 1 0 0",
          "lines 0 inf 0 1 0 0", "lines 0 1 0 1 0 x", "lines0 1 0 1 0 0", "surface 28 33 1 0 0 0"})
        EXPECT_NE(errorOf(VelUtilViewSetState(text)).find("no view"), std::string::npos) << text;
    EXPECT_EQ(VelUtilViewSetState(nullptr), 0);
    EXPECT_EQ(state(), lines);
    load(hillFile());
    const std::string surface = state();
    for (const char* const text : {"surface 28 1 1 0 0 0", "surface 28 91 1 0 0 0", "surface 28 33 0 0 0 0",
                                   "surface 28 33 1 nan 0 0", "surface 28 33 1 0 0"})
        EXPECT_EQ(VelUtilViewSetState(text), 0) << text;
    EXPECT_EQ(VelUtilViewSetState(lines.c_str()), 0);
    EXPECT_EQ(state(), surface);
}

TEST_F(ViewState, ALookThatASurfaceCannotHaveIsRefusedWithTheReason)
{
    load(tableFile());
    EXPECT_NE(errorOf(VelUtilViewFrom(0)).find("no surface"), std::string::npos);
    EXPECT_NE(errorOf(VelUtilSurfaceSetExaggeration(2)).find("no surface"), std::string::npos);
    EXPECT_EQ(VelUtilSurfaceClipColors(1), 0);
    load(hillFile());
    EXPECT_NE(errorOf(VelUtilViewFrom(3)).find("no side 3"), std::string::npos);
    EXPECT_NE(errorOf(VelUtilSurfaceSetExaggeration(0)).find("0.01 to 100"), std::string::npos);
    EXPECT_EQ(VelUtilSurfaceGetExaggeration(), 1);
    EXPECT_EQ(VelUtilSurfaceSetExaggeration(5), 1);
    EXPECT_EQ(VelUtilSurfaceGetExaggeration(), 5);
    EXPECT_EQ(VelUtilSurfaceClipColors(1), 1);
    EXPECT_EQ(VelUtilSurfaceColorsAreClipped(), 1);
    load(hillFile());
    EXPECT_EQ(VelUtilSurfaceGetExaggeration(), 1);
    EXPECT_EQ(VelUtilSurfaceColorsAreClipped(), 0);
}

} // namespace
} // namespace velmora::test
