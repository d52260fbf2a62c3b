#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"

namespace velmora::test {
namespace {

struct Point {
    double x = 0;
    double y = 0;
};

class Paper : public EngineFixture {
protected:
    Paper() { show(area); }
    static Point paperAt(double x, double y)
    {
        Point point;
        VelUtilPickPositionToPaper(x, y, &point.x, &point.y);
        return point;
    }
    void draw() { ASSERT_EQ(VelUtilWorkFinish(), 1) << VelUtilLastErrorMessage(); }
    static bool isGrey(const Pixel& pixel) { return pixel.red < 200 && std::abs(pixel.red - pixel.blue) < 24; }

    FakeArea area{400, 300};
};

TEST_F(Paper, TheFrameFillsTheAreaUntilThePaperIsAskedFor)
{
    load(tableFile());
    const Point lowerLeft = paperAt(0, 300);
    EXPECT_NEAR(lowerLeft.x, 0.125, 1e-9);
    EXPECT_NEAR(lowerLeft.y, 0.125, 1e-9);
    const Point upperRight = paperAt(400, 0);
    EXPECT_NEAR(upperRight.x, 8.375, 1e-9);
    EXPECT_NEAR(upperRight.y, 10.875, 1e-9);
    draw();
    EXPECT_EQ(area.surface.at(1, 1), White);
}

TEST_F(Paper, FittingThePaperShowsTheSheetOnTheWorkspace)
{
    load(tableFile());
    draw();
    VelUtilWorkViewFitPaper();
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    draw();
    EXPECT_EQ(style({"Interface", "ShowPaper"}), 1);
    EXPECT_TRUE(isGrey(area.surface.at(1, 1)));
    EXPECT_TRUE(isGrey(area.surface.at(398, 298)));
    // Letter is 268 pixels high and 207 wide there.
    EXPECT_EQ(area.surface.at(98, 150), White);
    EXPECT_TRUE(isGrey(area.surface.at(94, 150)));
    EXPECT_TRUE(isGrey(area.surface.at(305, 100))) << "the shadow";
    const Point corner = paperAt(200 - 4.25 * 268 / 11, 150 + 5.5 * 268 / 11);
    EXPECT_NEAR(corner.x, 0, 1e-9);
    EXPECT_NEAR(corner.y, 0, 1e-9);
}

TEST_F(Paper, TakingThePaperAwayShowsTheFrameAloneAgain)
{
    VelUtilWorkViewFitPaper();
    draw();
    setStyle({"Interface", "ShowPaper"}, 0);
    EXPECT_EQ(VelUtilPageIsComplete(), 0) << "a page notices";
    draw();
    EXPECT_EQ(area.surface.countOther(White), 0);
}

TEST_F(Paper, FittingTheFramesFillsTheNewPaperInsideItsMargins)
{
    load(tableFile());
    setStyle({"Paper", "PaperSize"}, 3); // A3
    setStyle({"Paper", "OrientPortrait"}, 0);
    EXPECT_NEAR(paperAt(400, 0).x, 8.375, 1e-9) << "frames stay where they are until they are fitted";
    VelUtilFrameFitAllToPaper();
    const Point lowerLeft = paperAt(0, 300);
    const Point upperRight = paperAt(400, 0);
    EXPECT_NEAR(lowerLeft.x, 0.125, 1e-9);
    EXPECT_NEAR(lowerLeft.y, 0.125, 1e-9);
    EXPECT_NEAR(upperRight.x, 16.54 - 0.125, 1e-9);
    EXPECT_NEAR(upperRight.y, 11.69 - 0.125, 1e-9);
}

TEST_F(Paper, ALandscapeSheetLiesOnItsSide)
{
    setStyle({"Paper", "OrientPortrait"}, 0);
    VelUtilWorkViewFitPaper();
    draw();
    // 11 x 8.5 inches are 347 x 268 pixels there.
    EXPECT_EQ(area.surface.at(30, 150), White);
    EXPECT_TRUE(isGrey(area.surface.at(24, 150)));
}

TEST_F(Paper, TheHardClipMarginsCount)
{
    setStyle({"Paper", "PaperSizeInfo", "Letter", "LeftHardClipOffset"}, 1.5);
    load(tableFile());
    EXPECT_NEAR(paperAt(0, 300).x, 1.5, 1e-9);
    setStyle({"Paper", "OrientPortrait"}, 0);
    VelUtilFrameFitAllToPaper();
    EXPECT_NEAR(paperAt(0, 300).y, 1.5, 1e-9) << "the left edge of the upright sheet lies at the bottom";
}

TEST_F(Paper, WithoutAnAreaAPositionIsTheCorner)
{
    area.detach();
    const Point point = paperAt(10, 10);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 0);
}

} // namespace
} // namespace velmora::test
