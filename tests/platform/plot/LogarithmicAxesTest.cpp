// Plots of lines with logarithmic axes, and their ticks.

#include "engine/plot/Palette.h"
#include "engine/plot/xy/XYPlot.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr int Width = 640;
constexpr int Height = 480;

constexpr AxisScales LogX{true, false};
constexpr AxisScales LogY{false, true};
constexpr AxisScales LogBoth{true, true};

XYLayout layoutOf(const XYPlot& plot, const std::shared_ptr<const Table>& table)
{
    const XYContent content{table, seriesOf(*table, noCheckpoint()), {plot.xRange(), plot.yRange(), {}, plot.scales()}};
    return layOut(content, {Width, Height, 1});
}

std::vector<std::string> labelsOf(const std::vector<Tick>& ticks)
{
    std::vector<std::string> labels;
    for (const Tick& tick : ticks)
        labels.push_back(tick.label);
    return labels;
}

using Labels = std::vector<std::string>;

/// Whether the picture has the colour of the first line in a column of pixels.
bool hasLine(const Picture& picture, double x)
{
    const Color color = lineColor(0);
    for (int y = 0; y < Height; ++y)
        if (picture.at(static_cast<int>(x), y).isNear(color.red, color.green, color.blue, 60))
            return true;
    return false;
}

std::string textAt(const XYPlot& plot, Point at)
{
    ShownValue found;
    return plot.valueAt(at.x / Width, at.y / Height, found) ? found.text : "";
}

double millisecondsOfCoarsePicture(Picture& picture, XYPlot& plot)
{
    Drawing drawing = picture.drawing();
    drawing.detail = Detail::Coarse;
    NoCheckpoint checkpoint;
    const auto begun = std::chrono::steady_clock::now();
    plot.draw(drawing, checkpoint);
    picture.refresh();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
}

} // namespace

TEST(LogarithmicTicks, StandAtDecadesWithTwoAndFiveWhereThereIsRoom)
{
    EXPECT_EQ(labelsOf(logarithmicTicks({-1.1, 3.1}, 6)), (Labels{"0.1", "1", "10", "100", "1000"}));
    EXPECT_EQ(labelsOf(logarithmicTicks({-0.1, 2.1}, 8)), (Labels{"1", "2", "5", "10", "20", "50", "100"}));
    EXPECT_EQ(labelsOf(logarithmicTicks({-9, 9}, 4)), (Labels{"10⁻⁵", "1", "100000"}));
    EXPECT_EQ(labelsOf(logarithmicTicks({std::log10(3.5), std::log10(6.1)}, 4)), (Labels{"4", "5", "6"}));
}

TEST(LogarithmicTicks, AreAtLeastTwoInEveryRange)
{
    for (double from = logarithm::Least; from < logarithm::Most; from += 37.37)
        for (const double span : {1e-9, 0.001, 0.03, 0.2, 0.31, 0.7, 1.0, 1.9, 4.0, 30.0, 500.0})
            for (const int most : {1, 2, 5, 12}) {
                const AxisRange range{from, std::min(from + span, logarithm::Most)};
                const std::vector<Tick> ticks = logarithmicTicks(range, most);
                EXPECT_GE(ticks.size(), 2U) << from << " + " << span << ", " << most;
                EXPECT_LE(ticks.size(), static_cast<std::size_t>(std::max(most, 5)) + 2) << from << " + " << span;
                for (const Tick& tick : ticks)
                    EXPECT_NEAR(range.fractionOf(std::log10(tick.value)), 0.5, 0.51) << tick.label;
            }
}

TEST(LogarithmicAxes, ValuesLieWhereTheirLogarithmsAre)
{
    const auto table = tableOf({{1, 10, 100, 1000}});
    XYPlot plot(table, noCheckpoint());
    ASSERT_TRUE(plot.setScales(LogY));
    const XYLayout layout = layoutOf(plot, table);
    const double step = layout.map({1, 10}).y - layout.map({0, 1}).y;
    EXPECT_GT(step, 50);
    EXPECT_NEAR(layout.map({2, 100}).y - layout.map({1, 10}).y, step, 1e-9);
    EXPECT_NEAR(layout.map({3, 1000}).y - layout.map({2, 100}).y, step, 1e-9);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const Point between = layout.map({1.5, std::sqrt(1000.0)});
    const Color color = lineColor(0);
    bool isThere = false;
    for (int dy = -1; dy <= 1; ++dy)
        isThere = isThere || picture.at(static_cast<int>(between.x), static_cast<int>(between.y) + dy)
                                 .isNear(color.red, color.green, color.blue, 110);
    EXPECT_TRUE(isThere);
}

TEST(LogarithmicAxes, WhatIsNotAboveNoughtIsAGapAndCounted)
{
    const auto table = tableOf({{1, 10, 100, 0, -5, missing, 100, 10, 1}});
    XYPlot plot(table, noCheckpoint());
    EXPECT_EQ(plot.leftOut(), 0U);
    ASSERT_TRUE(plot.setScales(LogY));
    EXPECT_EQ(plot.leftOut(), 2U);
    EXPECT_NEAR(plot.yRange().from, -0.1, 1e-9);
    EXPECT_NEAR(plot.yRange().to, 2.1, 1e-9);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_TRUE(hasLine(picture, layout.map({1.5, 1}).x));
    for (const double gap : {2.5, 3.5, 4.5, 5.5})
        EXPECT_FALSE(hasLine(picture, layout.map({gap, 1}).x)) << gap;
    EXPECT_TRUE(hasLine(picture, layout.map({7.5, 1}).x));
    ASSERT_TRUE(plot.setScales({}));
    EXPECT_EQ(plot.leftOut(), 0U);
    EXPECT_LT(plot.yRange().from, -5);
}

TEST(LogarithmicAxes, BothAxesCountOnlyRowsThatHaveAPlaceOnBoth)
{
    auto table = tableOf({{1e6, 1e5, 10, 1}});
    table->columns[0].values = {-1, 0, 1, 100};
    XYPlot plot(table, noCheckpoint());
    ASSERT_TRUE(plot.setScales(LogBoth));
    EXPECT_EQ(plot.leftOut(), 2U);
    EXPECT_NEAR(plot.xRange().from, 0, 0.05);
    EXPECT_NEAR(plot.xRange().to, 2, 0.05);
    EXPECT_LT(plot.yRange().to, 1.1) << "what is beside the x axis does not count";
}

TEST(LogarithmicAxes, TheValueUnderThePointerAndWhatIsPickedAreThoseThatAreSeenThere)
{
    const auto table = tableOf({{1, 10, 0, 1000}, {5, 5, 5, -1}});
    XYPlot plot(table, noCheckpoint());
    ASSERT_TRUE(plot.setScales(LogY));
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_EQ(textAt(plot, layout.map({1, 10})), "y1 = 10, x = 1");
    EXPECT_EQ(textAt(plot, layout.map({3, 1000})), "y1 = 1000, x = 3");
    const Point pixel = layout.map({0.5, std::sqrt(10.0)});
    PickFilter lines;
    lines.geometries = lines.text = false;
    EXPECT_EQ(
        plot.pick((pixel.x - 2) / Width, (pixel.y - 2) / Height, (pixel.x + 2) / Width, (pixel.y + 2) / Height, lines),
        1);
    EXPECT_EQ(plot.selectionDescription(), "line y1");
}

TEST(LogarithmicAxes, ZoomingKeepsTheValueUnderThePointer)
{
    const auto table = tableOf({{1, 10, 100, 1000}});
    XYPlot plot(table, noCheckpoint());
    ASSERT_TRUE(plot.setScales(LogBoth));
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const Point before = layoutOf(plot, table).map({2, 100});
    const auto expectKept = [&](const char* what, double tolerance) {
        const Point now = layoutOf(plot, table).map({2, 100});
        EXPECT_NEAR(now.x, before.x, tolerance) << what;
        EXPECT_NEAR(now.y, before.y, tolerance) << what;
    };
    // The labels of the zoomed axes may be wider: the plot then begins farther to the right.
    plot.zoom(3, before.x / Width, before.y / Height);
    EXPECT_LT(plot.yRange().span(), 1.2);
    expectKept("zoomed", 20);
    const Rect axis = layoutOf(plot, table).yAxis;
    ASSERT_TRUE(plot.zoomAxis(0.5, (axis.x1 + axis.x2) / 2 / Width, before.y / Height));
    expectKept("one axis", 20);
    plot.zoomTo((before.x - 50) / Width, (before.y - 50) / Height, (before.x + 50) / Width, (before.y + 50) / Height);
    const Rect whole = layoutOf(plot, table).map.plot;
    const Point middle = layoutOf(plot, table).map({2, 100});
    EXPECT_NEAR(middle.x, (whole.x1 + whole.x2) / 2, 20);
    EXPECT_NEAR(middle.y, (whole.y1 + whole.y2) / 2, 20);
    plot.fit();
    EXPECT_NEAR(plot.yRange().from, 0.9, 1e-9) << "the row at x = 0 has no place";
}

TEST(LogarithmicAxes, NoZoomAndNoMoveLeavesWhatNumbersCanTell)
{
    const auto table = tableOf({{1, 10, 100, 1000}});
    XYPlot plot(table, noCheckpoint());
    ASSERT_TRUE(plot.setScales(LogBoth));
    for (int i = 0; i < 200; ++i) {
        plot.zoom(0.7, 0.5, 0.5);
        plot.translate(0.3, 0.3);
        const XYLayout layout = layoutOf(plot, table);
        EXPECT_GE(layout.xTicks.size(), 2U);
        EXPECT_GE(layout.yTicks.size(), 2U);
    }
    EXPECT_GE(plot.xRange().from, logarithm::Least);
    EXPECT_GE(plot.yRange().from, logarithm::Least);
}

TEST(LogarithmicAxes, AnAxisWithoutAPositiveValueAndOneOfDatesStayLinear)
{
    auto table = tableOf({{0, -1, -2}});
    table->columns[0].isDate = true;
    XYPlot plot(table, noCheckpoint());
    const AxisRange before = plot.yRange();
    EXPECT_TRUE(plot.canBeLogarithmic(LogY));
    EXPECT_FALSE(plot.setScales(LogY));
    EXPECT_FALSE(plot.canBeLogarithmic(LogX));
    EXPECT_FALSE(plot.setScales(LogX));
    EXPECT_FALSE(plot.scales().isLogX || plot.scales().isLogY);
    EXPECT_EQ(plot.yRange().from, before.from);
    EXPECT_EQ(plot.leftOut(), 0U);
}

// A run under valgrind or a sanitizer takes longer: the logarithmic picture is compared with the linear one.
TEST(LogarithmicAxes, TenMillionRowsAreDrawnAsQuicklyAsOnLinearAxes)
{
    constexpr std::size_t Rows = 10000000;
    auto table = std::make_shared<Table>();
    table->columns = {{"x", false, std::vector<double>(Rows)}, {"y", false, std::vector<double>(Rows)}};
    for (std::size_t row = 0; row < Rows; ++row) {
        table->columns[0].values[row] = static_cast<double>(row);
        table->columns[1].values[row] = std::sin(static_cast<double>(row) * 0.1) + 0.2;
    }
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    millisecondsOfCoarsePicture(picture, plot);
    const double linear = millisecondsOfCoarsePicture(picture, plot);
    ASSERT_TRUE(plot.setScales(LogY));
    const double logarithmic = millisecondsOfCoarsePicture(picture, plot);
    RecordProperty("linear", std::to_string(linear));
    RecordProperty("logarithmic", std::to_string(logarithmic));
    EXPECT_LT(logarithmic, 5 * linear + 33) << linear;
}
