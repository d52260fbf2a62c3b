#include "tests/platform/export/ExportFixture.h"

#include "testing/EngineProbe.h"

#include <limits>

namespace velmora::test {
namespace {

using testing::EngineProbe;

class ExportError : public ExportFixture {};

constexpr int Largest = std::numeric_limits<int>::max();

TEST_F(ExportError, SizesThatNoPictureHasAreRefused)
{
    for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-5, 10}, {10, std::numeric_limits<int>::min()}})
        expectRefusal(path("a.png"), options(width, height),
                      {std::to_string(width) + "x" + std::to_string(height), "at least one pixel"});
    expectRefusal(path("a.png"), options(Largest, Largest), {"too large", "2147483647x2147483647", "Reduce"});
    expectRefusal(path("a.png"), options(Largest / 4, 10, 8), {"too large", "125000"});
    EXPECT_TRUE(service.created.empty());
}

TEST_F(ExportError, TheLargestSideIsAcceptedInEachDirectionAndOnePixelMoreIsNot)
{
    load(tableFile());
    picture(options(1000000, 1));
    picture(options(1, 1000000));
    for (const int supersample : {1, 8}) {
        const int largest = 1000000 / supersample;
        const std::string limit = "no side may have more than " + std::to_string(largest) + " pixels";
        expectRefusal(path("a.png"), options(largest + 1, 1, supersample), {"too large", limit});
        expectRefusal(path("a.png"), options(1, largest + 1, supersample), {"too large", limit});
    }
}

TEST_F(ExportError, SupersamplingsOutOfRangeAreRefused)
{
    for (const int factor : {0, -1, 9, Largest})
        expectRefusal(path("a.png"), options(10, 10, factor), {std::to_string(factor), "from 1 to 8"});
}

TEST_F(ExportError, RegionsAndResolutionsThatDoNotExistAreRefused)
{
    VelExportImageOptions wanted = options(10, 10);
    for (const int region : {-1, 3, Largest}) {
        wanted.region = region;
        expectRefusal(path("a.png"), wanted, {"a.png was not written. ", "no region " + std::to_string(region)});
    }
    wanted = options(10, 10);
    for (const double resolution : {-1.0, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
        wanted.dotsPerInch = resolution;
        expectRefusal(path("a.png"), wanted, {"dots per inch"});
    }
}

TEST_F(ExportError, NothingToGoByIsRefused)
{
    EXPECT_EQ(VelUtilExportImage(path("a.png").c_str(), nullptr), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("no options"), std::string::npos);
    expectRefusal("", options(10, 10), {"no file name"});
    const VelExportImageOptions wanted = options(10, 10);
    EXPECT_EQ(VelUtilExportImage(nullptr, &wanted), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("no file name"), std::string::npos);
    VelEngStop();
    EXPECT_EQ(VelUtilExportImage(path("a.png").c_str(), &wanted), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("not running"), std::string::npos);
}

TEST_F(ExportError, TheMessageOfTheOffscreenImagePassesThrough)
{
    load(tableFile());
    service.largestSide = 10;
    expectRefusal(path("a.png"), options(300, 200), {"a.png", "The image size 300x200 exceeds the maximum."});
}

TEST_F(ExportError, AMissingServiceOrImageIsTold)
{
    load(tableFile());
    service.createsNull = true;
    expectRefusal(path("a.png"), options(100, 100), {"no off-screen image"});
    VelEngOffscreenImageRegisterCallbacks(nullptr, 0);
    expectRefusal(path("a.png"), options(100, 100), {"no off-screen image service", "manager"});
}

TEST_F(ExportError, AnImageOfAnotherSizeIsNotTrusted)
{
    load(tableFile());
    for (const int error : {-1, 1}) {
        service.sizeError = error;
        expectRefusal(path("a.png"), options(100, 100), {"no off-screen image"});
    }
}

TEST_F(ExportError, AContextThatDoesNotWorkIsTold)
{
    load(tableFile());
    service.contextWorks = false;
    expectRefusal(path("a.png"), options(100, 100), {"context cannot be made current", "smaller"});
    service.answersAlways = true;
    expectRefusal(path("a.png"), options(100, 100), {"context cannot be made current"});
}

TEST_F(ExportError, AnImageThatCannotBeReadBackIsTold)
{
    load(tableFile());
    service.rowsReadable = 0;
    expectRefusal(path("a.png"), options(100, 100), {"could not be read back", "smaller"});
    service.rowsReadable = 30;
    expectRefusal(path("a.png"), options(100, 100), {"could not be read back"});
    service.rowsReadable = 60; // enough for half of it
    exported("a.png", options(100, 100));
}

TEST_F(ExportError, ADrawingThatThrowsIsToldAndTriedOnce)
{
    load(tableFile());
    for (const bool answersAlways : {false, true}) {
        service.answersAlways = answersAlways;
        EngineProbe::throwAt("drawing");
        expectRefusal(path("a.png"), options(100, 100), {"Provoked at drawing"});
    }
    EXPECT_EQ(service.created.size(), 2U);
    exported("a.png", options(100, 100));
}

} // namespace
} // namespace velmora::test
