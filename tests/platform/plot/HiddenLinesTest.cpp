// Lines that are hidden, and lines that differ by their dashes.

#include "engine/plot/Palette.h"
#include "engine/plot/xy/Dashes.h"
#include "engine/plot/xy/XYPlot.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

std::size_t countLine(XYPlot& plot, std::size_t line)
{
    Picture picture(640, 480);
    EXPECT_TRUE(picture.draw(plot));
    const Color color = lineColor(line);
    return picture.countNear(color.red, color.green, color.blue, 3);
}

double lengthOf(const std::vector<Dashes::Line>& dashes)
{
    double length = 0;
    for (const Dashes::Line& dash : dashes)
        for (std::size_t i = 1; i < dash.size(); ++i)
            length += std::hypot(dash[i].x - dash[i - 1].x, dash[i].y - dash[i - 1].y);
    return length;
}

} // namespace

TEST(HiddenLines, AHiddenLineLeavesThePictureAndTheLegendKeepsAPaleEntry)
{
    XYPlot plot(tableOf({{1, 2, 3}, {30, 20, 10}}), noCheckpoint());
    const std::size_t before = countLine(plot, 1);
    plot.showLine(1, false);
    EXPECT_EQ(countLine(plot, 1), 0u);
    EXPECT_GT(countLine(plot, 0), 100u);
    plot.showLine(1, true);
    EXPECT_EQ(countLine(plot, 1), before);
}

TEST(HiddenLines, AHiddenLineDoesNotCountWhenAllIsShown)
{
    XYPlot plot(tableOf({{1, 2, 3}, {1000, 2000, 3000}}), noCheckpoint());
    plot.showLine(1, false);
    EXPECT_GT(plot.yRange().to, 3000) << "the view stays";
    plot.fit();
    EXPECT_LT(plot.yRange().to, 4);
    plot.showLine(0, false);
    plot.fit();
    EXPECT_LT(plot.yRange().to, 4) << "without a line it stays, too";
}

TEST(HiddenLines, AloneAndAllTakeTurns)
{
    XYPlot plot(tableOf({{1, 2}, {3, 4}, {5, 6}}), noCheckpoint());
    plot.showLineAlone(1);
    EXPECT_FALSE(plot.isLineShown(0));
    EXPECT_TRUE(plot.isLineShown(1));
    EXPECT_FALSE(plot.isLineShown(2));
    plot.showLineAlone(2);
    EXPECT_TRUE(plot.isLineShown(2));
    EXPECT_FALSE(plot.isLineShown(1));
    plot.showLineAlone(2);
    EXPECT_TRUE(plot.isLineShown(0) && plot.isLineShown(1) && plot.isLineShown(2));
}

TEST(HiddenLines, AHiddenLineHasNoValueUnderThePointer)
{
    const auto table = tableOf({{5, 5, 5}});
    XYPlot plot(table, noCheckpoint());
    ShownValue found;
    const auto isFound = [&] {
        for (double x = 0.4; x < 0.7; x += 0.01)
            for (double y = 0.1; y < 0.9; y += 0.01)
                if (plot.valueAt(x, y, found))
                    return true;
        return false;
    };
    EXPECT_TRUE(isFound());
    plot.showLine(0, false);
    EXPECT_FALSE(isFound());
}

TEST(HiddenLines, TheLegendTellsWhichLineIsAtAPlace)
{
    XYPlot plot(tableOf({{1, 2}, {3, 4}}), noCheckpoint());
    std::size_t line = 7;
    EXPECT_FALSE(plot.legendLineAt(0.5, 0.5, line));
    int found[2] = {0, 0};
    for (double x = 0; x < 1; x += 0.005)
        for (double y = 0.8; y < 1; y += 0.005)
            if (plot.legendLineAt(x, y, line))
                ++found[line];
    EXPECT_GT(found[0], 5);
    EXPECT_GT(found[1], 5);
}

TEST(Dashes, LinesBeyondTheColoursDifferByTheirDashes)
{
    const auto table = tableOf(std::vector<std::vector<double>>(9, {1, 2}));
    const std::vector<Series> series = seriesOf(*table, noCheckpoint());
    EXPECT_EQ(series[0].dashes, 0u);
    EXPECT_EQ(series[6].dashes, 0u);
    EXPECT_EQ(series[7].dashes, 1u);
}

TEST(Dashes, ThePatternGoesOnFromPieceToPiece)
{
    Dashes whole(1, 1); // 6 on, 4 off
    EXPECT_DOUBLE_EQ(lengthOf(whole.cut({{0, 0, 0}, {100, 0, 0}})), 60);
    Dashes pieces(1, 1);
    double sum = 0;
    for (int i = 0; i < 25; ++i)
        sum += lengthOf(pieces.cut({{i * 4.0, 0, 0}, {i * 4.0 + 4, 0, 0}}));
    EXPECT_NEAR(sum, 60, 1e-9);
    Dashes solid(0, 1);
    EXPECT_DOUBLE_EQ(lengthOf(solid.cut({{0, 0, 0}, {100, 0, 0}})), 100);
}
