#include "tests/platform/export/ExportFixture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using ::testing::HasSubstr;
using ::testing::Not;

class ExportedPicture : public ExportFixture {};

/// The mean over all channels of how much two pictures of one size differ, 0 to 255.
double meanDifference(const PngPicture& a, const PngPicture& b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.bytes.size(); ++i)
        sum += std::abs(a.bytes[i] - b.bytes.at(i));
    return sum / static_cast<double>(a.bytes.size());
}

/// How dark a picture is on the whole: 0 for white, 1 for black.
double ink(const PngPicture& picture)
{
    double sum = 0;
    for (const unsigned char value : picture.bytes)
        sum += 255 - value;
    return sum / (255.0 * static_cast<double>(picture.bytes.size()));
}

/// How many different colours there are, up to 4096 of them told apart.
int colours(const PngPicture& picture)
{
    std::array<bool, 4096> seen = {};
    for (std::size_t i = 0; i < picture.bytes.size(); i += 3)
        seen[static_cast<std::size_t>((picture.bytes[i] >> 4) << 8 | (picture.bytes[i + 1] >> 4) << 4 |
                                      picture.bytes[i + 2] >> 4)] = true;
    return static_cast<int>(std::count(seen.begin(), seen.end(), true));
}

/// Rows in the middle of a picture of the work area.
struct SheetEdges {
    int above = 0;  ///< free above the sheet
    int shadow = 0; ///< below it
};

SheetEdges sheetEdges(const PngPicture& picture)
{
    const int x = picture.width / 2;
    const Pixel workspace = picture.at(x, 0);
    SheetEdges edges;
    while (edges.above < picture.height / 2 && picture.at(x, edges.above) != White)
        ++edges.above;
    int y = picture.height - 1;
    while (y > 0 && picture.at(x, y) == workspace)
        --y;
    for (; y > 0 && picture.at(x, y) != White; --y)
        ++edges.shadow;
    return edges;
}

std::string output(const std::string& command, int* status)
{
    std::string text;
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 256> part = {};
    while (pipe && std::fgets(part.data(), part.size(), pipe))
        text += part.data();
    *status = pipe ? pclose(pipe) : -1;
    return text;
}

TEST_F(ExportedPicture, HasTheSizeAskedForInEightBitRgb)
{
    load(tableFile());
    const PngPicture read = picture(options(317, 201));
    EXPECT_EQ(read.bitDepth, 8);
    EXPECT_TRUE(read.isRgb);
    EXPECT_EQ(read.at(0, 0), White);
    EXPECT_GT(read.countOther(White), 500);
}

TEST_F(ExportedPicture, HasThePixelsOfTheImageWithTheTopRowFirst)
{
    load(gridFile());
    FakeImage image(160, 120);
    ASSERT_TRUE(image.render(ExportRegion_Page));
    VelExportImageOptions wanted = options(160, 120);
    wanted.region = ExportRegion_Page;
    const PngPicture read = picture(wanted);
    EXPECT_GT(read.countOther(White), 500);
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 160; ++x)
            ASSERT_EQ(read.at(x, y), image.surface.at(x, 119 - y)) << x << ", " << y;
}

TEST_F(ExportedPicture, IsOnePixelIfThatIsAskedFor)
{
    load(tableFile());
    picture(options(1, 1));
    picture(options(1, 1, 8));
}

TEST_F(ExportedPicture, OfAnEmptyPageIsWhite)
{
    EXPECT_EQ(picture(options(90, 70, 3)).countOther(White), 0);
}

TEST_F(ExportedPicture, IsSmootherWithSupersamplingAndTheSamePictureOtherwise)
{
    load(hillFile());
    const PngPicture plain = picture(options(240, 180));
    for (int factor = 2; factor <= 8; ++factor) {
        const PngPicture smooth = picture(options(240, 180, factor));
        EXPECT_GT(colours(smooth), colours(plain)) << factor;
        EXPECT_LT(meanDifference(smooth, plain), 6) << factor;
        EXPECT_GT(meanDifference(smooth, plain), 0.05) << factor;
    }
}

TEST_F(ExportedPicture, IsTheMeanOfTheDrawnPixelsWhenSupersampled)
{
    load(gridFile());
    // Large enough for text of both to be proportional to the picture.
    VelExportImageOptions wanted = options(1920, 1440);
    wanted.dotsPerInch = 240;
    const PngPicture large = picture(wanted);
    wanted = options(640, 480, 3);
    wanted.dotsPerInch = 80;
    const PngPicture small = picture(wanted);
    for (int y = 0; y < 480; ++y) {
        for (int x = 0; x < 640; ++x) {
            int sum = 0;
            for (int i = 0; i < 9; ++i)
                sum += large.at(3 * x + i % 3, 3 * y + i / 3).green;
            ASSERT_EQ(small.at(x, y).green, (sum + 4) / 9) << x << ", " << y;
        }
    }
}

TEST_F(ExportedPicture, ScalesTextAndLinesWithItsSize)
{
    load(tableFile());
    const double small = ink(picture(options(1000, 750)));
    VelExportImageOptions wanted = options(2000, 1500);
    EXPECT_NEAR(ink(picture(wanted)) / small, 1, 0.06) << "twice the size, the same share of ink";
    wanted.dotsPerInch = 96; // text and lines as in the small one
    EXPECT_LT(ink(picture(wanted)) / small, 0.7);
}

TEST_F(ExportedPicture, OfAThousandPixelsLooksLikeAWindowOfThatSize)
{
    constexpr int Width = 1000;
    constexpr int Height = 700;
    constexpr int Title = 38; ///< rows with nothing but text, which is the same however lines are smoothed
    load(tableFile());
    FakeArea area(Width, Height);
    show(area);
    ASSERT_EQ(VelUtilWorkFinish(), 1);
    PngPicture screen = picture(options(Width, Height));
    const PngPicture read = screen;
    screen.bytes.clear();
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            for (const int value : {area.surface.at(x, Height - 1 - y).red, area.surface.at(x, Height - 1 - y).green,
                                    area.surface.at(x, Height - 1 - y).blue})
                screen.bytes.push_back(static_cast<unsigned char>(value));
    EXPECT_LT(meanDifference(read, screen), 2);
    constexpr long TitleBytes = 3L * Width * Title;
    EXPECT_TRUE(std::equal(read.bytes.begin(), read.bytes.begin() + TitleBytes, screen.bytes.begin()));
    EXPECT_TRUE(std::any_of(read.bytes.begin(), read.bytes.begin() + TitleBytes, [](int value) { return value < 99; }));
}

TEST_F(ExportedPicture, HasTextThatFitsIntoALowStrip)
{
    load(tableFile());
    VelExportImageOptions wanted = options(3000, 250);
    const PngPicture strip = picture(wanted);
    wanted.dotsPerInch = 48; // half of the screen's
    EXPECT_EQ(picture(wanted).bytes, strip.bytes);
}

TEST_F(ExportedPicture, NotesItsResolutionWhenOneIsAskedFor)
{
    load(tableFile());
    VelExportImageOptions wanted = options(60, 40);
    EXPECT_EQ(picture(wanted).dotsPerMetre, 0U);
    wanted.dotsPerInch = 254;
    EXPECT_EQ(picture(wanted).dotsPerMetre, 10000U);
}

TEST_F(ExportedPicture, ShowsTheRegionAskedFor)
{
    load(gridFile());
    FakeArea area(240, 180);
    show(area);
    setStyle({"Interface", "ShowPaper"}, 1);
    VelExportImageOptions wanted = options(240, 180);
    const PngPicture frame = picture(wanted);
    wanted.region = ExportRegion_Page;
    const PngPicture paper = picture(wanted);
    wanted.region = ExportRegion_WorkArea;
    const PngPicture work = picture(wanted);
    EXPECT_NE(frame.bytes, paper.bytes);
    EXPECT_EQ(paper.at(2, 90), White) << "beside the paper";
    EXPECT_NE(work.at(2, 90), White) << "the workspace beside the paper";
}

TEST_F(ExportedPicture, OfTheWorkAreaHasTheSurroundingsOfTheSheetScaledWithIt)
{
    load(gridFile());
    setStyle({"Interface", "ShowPaper"}, 1);
    for (const bool isShown : {false, true}) {
        FakeArea area(240, 180);
        if (isShown)
            show(area);
        VelExportImageOptions wanted = options(240, 180);
        wanted.region = ExportRegion_WorkArea;
        const SheetEdges plain = sheetEdges(picture(wanted));
        wanted.supersample = 4;
        const SheetEdges smooth = sheetEdges(picture(wanted));
        wanted = options(960, 720);
        wanted.region = ExportRegion_WorkArea;
        const SheetEdges large = sheetEdges(picture(wanted));
        EXPECT_NEAR(plain.above, isShown ? 16 : 4, 1);
        EXPECT_NEAR(smooth.above, plain.above, 1) << isShown;
        EXPECT_NEAR(large.above, 4 * plain.above, 2) << isShown;
        EXPECT_NEAR(smooth.shadow, plain.shadow, 1) << isShown;
        EXPECT_NEAR(large.shadow, isShown ? 16 : 4, 1);
    }
}

TEST_F(ExportedPicture, IsReadByOtherProgramsWithoutAWarning)
{
    load(gridFile());
    VelExportImageOptions wanted = options(123, 77, 2);
    wanted.dotsPerInch = 150;
    const std::string file = exported("chart.png", wanted);
    int status = 0;
    // With every pixel read, unlike by -format alone.
    const std::string answer = output("identify -regard-warnings -verbose '" + file + "' 2>&1", &status);
    EXPECT_EQ(status, 0) << answer;
    EXPECT_THAT(answer, HasSubstr("Format: PNG "));
    EXPECT_THAT(answer, HasSubstr("Geometry: 123x77+0+0\n"));
    EXPECT_THAT(answer, HasSubstr("Resolution: 59.06x59.06\n"));
    EXPECT_THAT(answer, HasSubstr("Depth: 8-bit\n"));
    EXPECT_THAT(answer, Not(HasSubstr("warning")));
    EXPECT_THAT(answer, Not(HasSubstr("error")));
}

TEST_F(ExportedPicture, CanBeMadeBetweenTwoSlicesOfOtherWork)
{
    load(tableFile());
    const PngPicture undisturbed = picture(options(200, 150));
    FakeArea area(200, 150);
    show(area);
    ASSERT_EQ(VelUtilWorkFinish(), 1);
    const std::vector<unsigned char> screen = area.surface.bytes();
    VelUtilPageRedraw();
    slowDown();
    bool done = false;
    PngPicture read;
    inTurn = [&] {
        if (!done) {
            done = true;
            read = picture(options(200, 150));
        }
        return 0;
    };
    EXPECT_EQ(VelUtilWorkFinish(), 1) << VelUtilLastErrorMessage();
    EXPECT_TRUE(done);
    EXPECT_EQ(read.bytes, undisturbed.bytes);
    EXPECT_EQ(area.surface.bytes(), screen);
}

} // namespace
} // namespace velmora::test
