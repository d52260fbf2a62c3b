#include "tests/platform/export/ExportFixture.h"

#include <cstdlib>
#include <limits>

namespace velmora::test {
namespace {

using namespace sdk::integration;

class RenderedPage : public ExportFixture {
protected:
    int render(double dotsPerInch) { return VelUtilRenderPage(dotsPerInch, 0, take, reinterpret_cast<long>(this)); }

    int stopAfter = std::numeric_limits<int>::max();
    int rows = 0;
    PngPicture page;

private:
    static int take(int row, int width, int height, const unsigned char* rgb, long clientData)
    {
        auto* const self = reinterpret_cast<RenderedPage*>(clientData);
        EXPECT_EQ(row, self->rows);
        self->page.width = width;
        self->page.height = height;
        self->page.bytes.insert(self->page.bytes.end(), rgb, rgb + 3 * width);
        return ++self->rows < self->stopAfter ? 1 : 0;
    }
};

TEST_F(RenderedPage, HasThePapersSizeAtTheResolution)
{
    load(gridFile());
    ASSERT_EQ(render(20), 1) << VelUtilLastErrorMessage();
    EXPECT_EQ(page.width, 170);
    EXPECT_EQ(page.height, 220);
    EXPECT_EQ(rows, 220);
    EXPECT_EQ(page.at(1, 1), White) << "the margin";
    EXPECT_GT(page.countOther(White), 1000);
    EXPECT_DOUBLE_EQ(progress.back(), 1);
}

TEST_F(RenderedPage, IsTheExportedPictureOfThePage)
{
    load(gridFile());
    ASSERT_EQ(render(20), 1);
    VelExportImageOptions wanted = options(170, 220);
    wanted.region = ExportRegion_Page;
    EXPECT_EQ(picture(wanted).bytes, page.bytes);
}

TEST_F(RenderedPage, LiesAsThePaperLies)
{
    load(tableFile());
    setStyle({"Paper", "OrientPortrait"}, 0);
    ASSERT_EQ(render(10), 1);
    EXPECT_EQ(page.width, 110);
    EXPECT_EQ(page.height, 85);
}

TEST_F(RenderedPage, ComesInBandsAtAPrintersResolution)
{
    load(tableFile());
    ASSERT_EQ(render(400), 1); // 3400 x 4400 pixels
    EXPECT_EQ(rows, 4400);
    EXPECT_GE(service.drawn.size(), 2U);
    EXPECT_LE(service.mostAlive, 1);
}

TEST_F(RenderedPage, StopsWhenTheOneWhoTakesTheRowsSaysSo)
{
    load(tableFile());
    stopAfter = 7;
    EXPECT_EQ(render(20), 0);
    EXPECT_EQ(rows, 7);
    EXPECT_EQ(VelUtilWasInterrupted(), 1);
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(VelUtilIsBusy(), 0);
}

TEST_F(RenderedPage, IsRefusedAtAResolutionThatNoPageHas)
{
    for (const double dotsPerInch :
         {0.0, -3.0, 1e9, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(render(dotsPerInch), 0);
        EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("dots per inch"), std::string::npos) << dotsPerInch;
    }
    EXPECT_EQ(VelUtilRenderPage(20, 0, nullptr, 0), 0);
    EXPECT_STRNE(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(rows, 0);
}

} // namespace
} // namespace velmora::test
