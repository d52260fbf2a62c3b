#include "tests/platform/export/ExportFixture.h"

#include <algorithm>
#include <cstdlib>

namespace velmora::test {
namespace {

using namespace sdk::integration;

class ExportedTiles : public ExportFixture {
protected:
    /// How many pixels of two pictures differ by more than `most` in any channel.
    static int differing(const PngPicture& a, const PngPicture& b, int most)
    {
        int count = 0;
        for (std::size_t i = 0; i < a.bytes.size(); i += 3) {
            int difference = 0;
            for (std::size_t c = 0; c < 3; ++c)
                difference = std::max(difference, std::abs(a.bytes[i + c] - b.bytes.at(i + c)));
            count += difference > most ? 1 : 0;
        }
        return count;
    }
};

TEST_F(ExportedTiles, AreDrawnWhenTheImageKindHasALimitAndJoin)
{
    for (const std::string& file : {gridFile(), tableFile()}) {
        load(file);
        service.largestSide = 16384;
        const PngPicture whole = picture(options(401, 307));
        service.largestSide = 100;
        service.drawn.clear();
        const PngPicture joined = picture(options(401, 307));
        EXPECT_GT(service.drawn.size(), 15U);
        // The edges of a few triangles fall on the other side of a pixel's middle.
        EXPECT_LT(differing(whole, joined, 0), 401 * 307 / 500) << file;
        EXPECT_GT(joined.countOther(White), 1000);
    }
}

TEST_F(ExportedTiles, JoinWhenTheyAreSupersampled)
{
    load(gridFile());
    const PngPicture whole = picture(options(150, 101, 5));
    service.largestSide = 130;
    service.drawn.clear();
    const PngPicture joined = picture(options(150, 101, 5));
    EXPECT_GT(service.drawn.size(), 20U);
    for (const auto& [width, height] : service.drawn) {
        EXPECT_EQ(width % 5, 0);
        EXPECT_EQ(height % 5, 0);
    }
    EXPECT_LT(differing(whole, joined, 8), 150 * 101 / 200);
}

TEST_F(ExportedTiles, OfEveryRegionJoin)
{
    load(gridFile());
    setStyle({"Interface", "ShowPaper"}, 1);
    for (const ExportRegion_e region : {ExportRegion_Page, ExportRegion_WorkArea}) {
        VelExportImageOptions wanted = options(220, 260);
        wanted.region = region;
        service.largestSide = 16384;
        const PngPicture whole = picture(wanted);
        service.largestSide = 80;
        EXPECT_LT(differing(whole, picture(wanted), 0), 220 * 260 / 500) << region;
    }
}

TEST_F(ExportedTiles, HoldNoMoreThanABandOfALargePicture)
{
    load(tableFile());
    VelExportImageOptions wanted = options(4000, 1500, 3);
    picture(wanted); // 12000 x 4500 pixels as drawn
    EXPECT_GT(service.drawn.size(), 5U);
    for (const auto& [width, height] : service.drawn)
        EXPECT_LE(static_cast<long>(width) * height, 8L * 1024 * 1024);
}

TEST_F(ExportedTiles, GoBeyondWhatAnImageCanBeInOneDirection)
{
    load(tableFile());
    const PngPicture wide = picture(options(40000, 20));
    EXPECT_EQ(wide.width, 40000);
    EXPECT_GE(service.drawn.size(), 3U);
    const PngPicture high = picture(options(20, 40000));
    EXPECT_EQ(high.height, 40000);
}

TEST_F(ExportedTiles, BecomeSmallerUntilTheyFitAndStayThatSize)
{
    load(tableFile());
    service.largestSide = 150;
    picture(options(500, 400));
    for (const auto& [width, height] : service.drawn) {
        EXPECT_LE(std::max(width, height), 150);
        EXPECT_GE(width, 75);
    }
}

TEST_F(ExportedTiles, OfOneSizeShareAnImage)
{
    load(tableFile());
    picture(options(4000, 1500, 3));
    EXPECT_GT(service.drawn.size(), 5U);
    EXPECT_EQ(service.created.size(), 2U) << "one for all bands but the last, which has fewer rows";
}

TEST_F(ExportedTiles, AreOfOneViewOrThereIsNoPicture)
{
    load(tableFile());
    FakeArea area(120, 90);
    show(area);
    ASSERT_EQ(VelUtilWorkFinish(), 1);
    service.largestSide = 100;
    slowDown();
    inTurn = [this] {
        if (!told.empty() && told.back().find("Reading") == 0)
            VelUtilViewZoom(1.01, 60, 45);
        return 0;
    };
    expectRefusal(path("a.png"), options(300, 300), {"a.png", "view was changed", "again"});
    inTurn = [this] {
        if (!told.empty() && told.back().find("Reading") == 0)
            setStyle({"Paper", "OrientPortrait"}, 0);
        return 0;
    };
    expectRefusal(path("a.png"), options(300, 300), {"view was changed"});
}

} // namespace
} // namespace velmora::test
