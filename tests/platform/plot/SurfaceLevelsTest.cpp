// Levels of detail: what a coarse picture shows of a fine grid.

#include "engine/data/DataReader.h"
#include "engine/plot/surface/HeightPatch.h"
#include "engine/plot/surface/SurfaceMesh.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

/// The heights that all nodes of a level show.
std::vector<float> shownAt(const SurfaceLevels& levels, int level)
{
    const HeightPatch patch(levels, level, 0, 0, levels.columns(level), levels.rows(level));
    std::vector<float> heights;
    for (int row = 0; row < levels.rows(level); ++row)
        for (int column = 0; column < levels.columns(level); ++column)
            heights.push_back(patch.at(column, row));
    return heights;
}

double gentle(int column, int row)
{
    return 3 * std::sin(column * 0.011) + 2 * std::cos(row * 0.017);
}

std::shared_ptr<Grid> gentleGridWith(const std::vector<std::pair<std::pair<int, int>, float>>& odd)
{
    auto grid = gridOf(700, 500, gentle);
    for (const auto& [place, height] : odd) {
        grid->values[static_cast<std::size_t>(place.second) * 700 + static_cast<std::size_t>(place.first)] = height;
        grid->minimum = std::min(grid->minimum, height);
        grid->maximum = std::max(grid->maximum, height);
    }
    return grid;
}

} // namespace

TEST(SurfaceLevels, ANodeHasTheSmallestAndTheLargestOfItsCells)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> heights(-5, 5);
    const auto grid = gridOf(37, 21, [&](int, int) { return random() % 9 == 0 ? missing : heights(random); });
    const SurfaceLevels levels(grid, noCheckpoint());
    for (int level = 0; level < levels.count(); ++level)
        for (int row = 0; row < levels.rows(level); ++row)
            for (int column = 0; column < levels.columns(level); ++column) {
                HeightRange expected;
                for (int y = row << level; y < std::min((row + 1) << level, 21); ++y)
                    for (int x = column << level; x < std::min((column + 1) << level, 37); ++x)
                        expected.take(grid->at(x, y));
                const HeightRange found = levels.range(level, column, row);
                EXPECT_EQ(found.low, expected.low);
                EXPECT_EQ(found.high, expected.high);
            }
    EXPECT_EQ(levels.columns(levels.count() - 1), 1);
    EXPECT_EQ(levels.rows(levels.count() - 1), 1);
}

TEST(SurfaceLevels, OutsideThereAreOnlyGaps)
{
    const SurfaceLevels levels(hill(9), noCheckpoint());
    EXPECT_TRUE(levels.range(0, -1, 3).isGap());
    EXPECT_TRUE(levels.range(1, 5, 0).isGap());
    EXPECT_TRUE(levels.range(2, 0, 3).isGap());
}

TEST(SurfaceLevels, ASpikeAndAPitOfOneCellAreThereAtEveryLevel)
{
    std::mt19937 random(2);
    for (int trial = 0; trial < 12; ++trial) {
        const auto place = [&] { return std::pair<int, int>(random() % 700, random() % 500); };
        const auto grid = gentleGridWith({{place(), 30}, {place(), -25}});
        const SurfaceLevels levels(grid, noCheckpoint());
        for (int level = 0; level <= levels.coarsest(); ++level) {
            const std::vector<float> shown = shownAt(levels, level);
            EXPECT_EQ(*std::max_element(shown.begin(), shown.end()), 30) << level;
            EXPECT_EQ(*std::min_element(shown.begin(), shown.end()), -25) << level;
        }
    }
}

TEST(SurfaceLevels, ASpikeBesideAPitHidesItNowhere)
{
    for (int offset = 0; offset < 16; offset += 3) {
        const auto grid = gentleGridWith({{{300 + offset, 200}, 30.0F}, {{301 + offset, 200 + offset % 2}, -25.0F}});
        const SurfaceLevels levels(grid, noCheckpoint());
        for (int level = 0; level <= levels.coarsest(); ++level) {
            const std::vector<float> shown = shownAt(levels, level);
            EXPECT_EQ(*std::max_element(shown.begin(), shown.end()), 30) << level << ' ' << offset;
            EXPECT_EQ(*std::min_element(shown.begin(), shown.end()), -25) << level << ' ' << offset;
        }
    }
}

TEST(SurfaceLevels, AGentleSlopeStaysGentle)
{
    const auto grid = gridOf(512, 512, [](int column, int row) { return column * 1.0 + 2.0 * row; });
    const SurfaceLevels levels(grid, noCheckpoint());
    const HeightPatch patch(levels, 4, 0, 0, 32, 32);
    for (int row = 1; row < 31; ++row)
        for (int column = 1; column < 30; ++column)
            EXPECT_NEAR(patch.at(column + 1, row) - patch.at(column, row), 16, 1e-3);
}

TEST(SurfaceLevels, APartShowsWhatTheWholeShowsThere)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> heights(-5, 5);
    const auto grid = gridOf(300, 300, [&](int, int) { return random() % 31 == 0 ? missing : heights(random); });
    const SurfaceLevels levels(grid, noCheckpoint());
    const HeightPatch whole(levels, 2, 0, 0, 75, 75);
    const HeightPatch part(levels, 2, 31, 40, 9, 7);
    for (int row = 40; row < 47; ++row)
        for (int column = 31; column < 40; ++column)
            EXPECT_EQ(part.at(column, row), whole.at(column, row));
}

TEST(SurfaceLevels, TheSurfaceHasTheSameBorderAtEveryLevel)
{
    const SurfaceLevels levels(gridOf(101, 60, gentle), noCheckpoint());
    for (int level = 0; level <= levels.coarsest(); ++level) {
        EXPECT_EQ(levels.columnPlace(level, 0), 0);
        EXPECT_EQ(levels.columnPlace(level, levels.columns(level) - 1), 100);
        EXPECT_EQ(levels.rowPlace(level, levels.rows(level) - 1), 59);
    }
}

TEST(SurfaceLevels, TheCoarsestLevelStillHasASurface)
{
    for (const auto& [columns, rows] : {std::pair(700, 500), std::pair(2000, 2), std::pair(3, 900), std::pair(1, 80)}) {
        const SurfaceLevels levels(gridOf(columns, rows, gentle), noCheckpoint());
        EXPECT_GE(levels.columns(levels.coarsest()), std::min(columns, 2));
        EXPECT_GE(levels.rows(levels.coarsest()), std::min(rows, 2));
    }
}

TEST(SurfaceLevels, MakingThemCanBeStopped)
{
    CountingCheckpoint checkpoint;
    checkpoint.stopAt = 3;
    EXPECT_THROW(SurfaceLevels(gridOf(600, 600, gentle), checkpoint), ReadInterrupted);
    EXPECT_EQ(checkpoint.questions, 3);
}

namespace {

const std::vector<int> spikeColumns = {100, 301, 502, 703, 904, 1105};
constexpr int SpikeRow = 777;

std::shared_ptr<Grid> plain(bool withSpikes)
{
    auto grid = gridOf(1200, 1200, [](int, int) { return 0.0; });
    grid->maximum = 100; // so that it has the same shape without them
    for (const int column : spikeColumns)
        grid->values[std::size_t(SpikeRow) * 1200 + static_cast<std::size_t>(column)] = withSpikes ? 100 : 0;
    return grid;
}

void drawFromTheSide(GridPlot& plot, Picture& picture, Detail detail)
{
    plot.rotate(-plot.view().aboutVertical, 20 - plot.view().tilt);
    Drawing drawing = picture.drawing();
    drawing.detail = detail;
    EXPECT_TRUE(plot.draw(drawing, noCheckpoint()));
    picture.refresh();
}

} // namespace

TEST(SurfaceLevels, EverySpikeIsSeenInACoarsePictureAndInAFullOne)
{
    GridPlot spiky(plain(true));
    GridPlot level(plain(false));
    const SurfaceShape shape(*plain(true));
    for (const Detail detail : {Detail::Coarse, Detail::Full}) {
        Picture without(900, 600);
        drawFromTheSide(level, without, detail);
        Picture with(900, 600);
        drawFromTheSide(spiky, with, detail);
        const Camera camera = layOut(*plain(true), shape, spiky.view(), {900, 600, 1}).camera;
        for (const int column : spikeColumns) {
            const StrokePoint middle = camera.project({shape.x(column), shape.y(SpikeRow), shape.z(50)});
            int different = 0;
            for (int y = -8; y < 8; ++y)
                for (int x = -8; x <= 8; ++x) {
                    const int px = static_cast<int>(middle.x) + x;
                    const int py = static_cast<int>(middle.y) + y;
                    const Picture::Pixel plainOne = without.at(px, py);
                    different += with.at(px, py).isNear(plainOne.red, plainOne.green, plainOne.blue, 20) ? 0 : 1;
                }
            EXPECT_GE(different, 8) << column << (detail == Detail::Full ? " full" : " coarse");
        }
    }
}
