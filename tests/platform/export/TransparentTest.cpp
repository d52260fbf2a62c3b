#include "tests/platform/export/ExportFixture.h"

#include <algorithm>
#include <cstdlib>

namespace velmora::test {
namespace {

using namespace sdk::integration;

class TransparentExport : public ExportFixture {
protected:
    static VelExportImageOptions withoutGround(VelExportImageOptions wanted)
    {
        wanted.transparent = 1;
        return wanted;
    }

    static bool isNear(const Pixel& a, const Pixel& b, int most)
    {
        return std::abs(a.red - b.red) <= most && std::abs(a.green - b.green) <= most &&
               std::abs(a.blue - b.blue) <= most;
    }

    /// On white it is the opaque picture.
    static void expectSameOnWhite(const PngPicture& transparent, const PngPicture& opaque)
    {
        int different = 0;
        for (int y = 0; y < opaque.height; ++y)
            for (int x = 0; x < opaque.width; ++x)
                different += isNear(transparent.onGround(x, y, 255), opaque.at(x, y), 1) ? 0 : 1;
        EXPECT_EQ(different, 0);
    }
};

TEST_F(TransparentExport, HasAlphaAndOnWhiteThePictureThatIsExportedWithGround)
{
    for (const std::string& file : {gridFile(), tableFile()}) {
        load(file);
        for (const int supersample : {1, 3}) {
            const VelExportImageOptions wanted = options(300, 200, supersample);
            const PngPicture opaque = picture(wanted);
            const PngPicture transparent = readPng(exported("clear.png", withoutGround(wanted)));
            EXPECT_FALSE(opaque.hasAlpha);
            ASSERT_TRUE(transparent.hasAlpha) << transparent.problem;
            EXPECT_EQ(transparent.bitDepth, 8);
            expectSameOnWhite(transparent, opaque);
        }
    }
}

TEST_F(TransparentExport, IsClearWhereNothingIsDrawnOpaqueInTheSurfaceAndBetweenAtTheEdgesOfText)
{
    load(gridFile());
    const PngPicture made = readPng(exported("clear.png", withoutGround(options(300, 200))));
    EXPECT_EQ(made.alphaAt(0, 0), 0);
    EXPECT_EQ(made.at(0, 0), (Pixel{0, 0, 0}));
    int opaque = 0;
    int between = 0;
    for (int y = 0; y < made.height; ++y)
        for (int x = 0; x < made.width; ++x) {
            opaque += made.alphaAt(x, y) == 255 ? 1 : 0;
            between += made.alphaAt(x, y) > 10 && made.alphaAt(x, y) < 245 ? 1 : 0;
        }
    EXPECT_GT(opaque, 5000);
    EXPECT_GT(between, 100);
}

TEST_F(TransparentExport, OfThePageAndInTilesIsTheSameOnWhite)
{
    load(gridFile());
    VelExportImageOptions wanted = options(220, 260);
    wanted.region = ExportRegion_Page;
    service.largestSide = 80;
    expectSameOnWhite(readPng(exported("clear.png", withoutGround(wanted))), picture(wanted));
}

TEST_F(TransparentExport, AskedForOnceDoesNotStay)
{
    load(tableFile());
    const PngPicture before = picture(options(120, 90));
    exported("clear.png", withoutGround(options(120, 90)));
    EXPECT_EQ(picture(options(120, 90)).bytes, before.bytes);
}

} // namespace
} // namespace velmora::test
