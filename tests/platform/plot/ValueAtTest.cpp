// Which value is at a place of the picture.

#include "engine/plot/ValueText.h"
#include "engine/plot/surface/SurfaceArea.h"
#include "engine/plot/xy/XYPlot.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr double Width = 792; // of a plot that was not drawn yet
constexpr double Height = 612;

/// Where a value stands, in fractions of the frame.
Point placeOf(const XYPlot& plot, const std::shared_ptr<const Table>& table, Point value)
{
    const XYContent content{table, seriesOf(*table, noCheckpoint()), {plot.xRange(), plot.yRange(), {}}};
    const Point at = layOut(content, FrameSize()).map(value);
    return {at.x / Width, at.y / Height};
}

std::string textAt(const Content& plot, double x, double y)
{
    ShownValue found;
    return plot.valueAt(x, y, found) ? found.text : "";
}

double secondsOf(const Content& plot, Point place, int times)
{
    const auto begun = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i)
        textAt(plot, place.x, place.y);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count() / times;
}

} // namespace

TEST(ValueAt, TheNearestValueOfAllLinesIsToldWithItsPlaceAndItsLine)
{
    const auto table = tableOf({{0, 10, 5.25}, {9, 3, 8}});
    const XYPlot plot(table, noCheckpoint());
    const Point place = placeOf(plot, table, {2, 5.25});
    ShownValue found;
    ASSERT_TRUE(plot.valueAt(place.x - 4 / Width, place.y + 5 / Height, found));
    EXPECT_EQ(found.text, "y1 = 5.25, x = 2");
    EXPECT_NEAR(found.x, place.x, 1e-9);
    EXPECT_NEAR(found.y, place.y, 1e-9);
    const Point other = placeOf(plot, table, {1, 3});
    EXPECT_EQ(textAt(plot, other.x, other.y), "y2 = 3, x = 1");
}

TEST(ValueAt, FarFromAllValuesAndOutsideTheAxesThereIsNone)
{
    const auto table = tableOf({{0, 10, 5, missing, 5}});
    XYPlot plot(table, noCheckpoint());
    const Point between = placeOf(plot, table, {0.5, 5});
    EXPECT_EQ(textAt(plot, between.x, between.y), "") << "on the line, but no value";
    const Point gap = placeOf(plot, table, {3, 5});
    EXPECT_EQ(textAt(plot, gap.x, gap.y), "");
    EXPECT_EQ(textAt(plot, 0.01, 0.01), "");
    const Point last = placeOf(plot, table, {4, 5});
    EXPECT_EQ(textAt(plot, last.x, last.y), "y1 = 5, x = 4");
    plot.translate(0.5, 0);
    EXPECT_EQ(textAt(plot, last.x + 0.5, last.y), "") << "it is cut off now";
}

TEST(ValueAt, DatesAreToldAsDatesAndRowsAsRows)
{
    const auto march = 20513.0;
    auto table = tableOf({{1, 2, 3}});
    table->columns[0] = {"day", true, {march, march + 6.5 / 24, march + (12 * 3600 + 5) / 86400.0}};
    const XYPlot plot(table, noCheckpoint());
    const auto at = [&](std::size_t row) {
        const Point place = placeOf(plot, table, {table->columns[0].values[row], table->columns[1].values[row]});
        return textAt(plot, place.x, place.y);
    };
    EXPECT_EQ(at(0), "y1 = 1, day = 2026-03-01");
    EXPECT_EQ(at(1), "y1 = 2, day = 2026-03-01 06:30:00");
    EXPECT_EQ(at(2), "y1 = 3, day = 2026-03-01 12:00:05");

    auto single = std::make_shared<Table>();
    single->columns.push_back({"alone", false, {7, 8, 9}});
    const XYPlot rows(single, noCheckpoint());
    const Point place = placeOf(rows, single, {2, 8});
    EXPECT_EQ(textAt(rows, place.x, place.y), "alone = 8, row = 2");
}

TEST(ValueAt, ValuesAreToldAsTheyWereWritten)
{
    EXPECT_EQ(valueText(0.1), "0.1");
    EXPECT_EQ(valueText(-1500.0), "-1500");
    EXPECT_EQ(valueText(55.2F), "55.2");
    EXPECT_EQ(valueText(3e-9), "3e-09");
}

// Wherever the pointer is and however the rows lie. A run under valgrind or a sanitizer takes longer.
TEST(ValueAt, TenMillionRowsAreSearchedInAMoment)
{
    constexpr std::size_t Rows = 10000000;
    auto table = std::make_shared<Table>();
    table->columns = {{"x", false, std::vector<double>(Rows)}, {"y", false, std::vector<double>(Rows)}};
    for (std::size_t row = 0; row < Rows; ++row) {
        table->columns[0].values[row] = static_cast<double>(row);
        table->columns[1].values[row] = std::sin(static_cast<double>(row) * 1e-5) + (row % 1000 == 7 ? missing : 0);
    }
    const XYPlot plot(table, noCheckpoint());
    const Point place = placeOf(plot, table, {3e6, std::sin(30.0)});
    EXPECT_NE(textAt(plot, place.x, place.y), "");
    const double near = secondsOf(plot, place, 5);
    const double far = secondsOf(plot, {place.x, 0.5}, 5);
    RecordProperty("near", std::to_string(near));
    RecordProperty("far", std::to_string(far));
    EXPECT_LT(near, 0.1);
    EXPECT_LT(far, 0.1);
}

namespace {

/// Where the middle of a cell is in the first picture of a grid, in fractions of the frame.
Point placeOfCell(const Grid& grid, int column, int row, const SurfaceView& view = {})
{
    const SurfaceShape shape(grid);
    const StrokePoint at =
        cameraFor(view, shape, FrameSize()).project({shape.x(column), shape.y(row), shape.z(grid.at(column, row))});
    return {at.x / Width, at.y / Height};
}

} // namespace

TEST(ValueAt, TheCellOfASurfaceIsToldWithItsPlaceOnTheMap)
{
    auto grid = gridOf(40, 30, [](int column, int row) { return 100 + column - 0.5 * row; });
    grid->xCenter = 1000;
    grid->yCenter = 2000;
    grid->cellSize = 10;
    const GridPlot plot(grid);
    for (const auto& cell : {std::pair{20, 15}, std::pair{0, 29}, std::pair{39, 29}, std::pair{5, 11}}) {
        const Point place = placeOfCell(*grid, cell.first, cell.second);
        ShownValue found;
        // A little inwards: the outermost cells end at their middles.
        ASSERT_TRUE(plot.valueAt(place.x + (0.5 - place.x) * 1e-4, place.y + (0.5 - place.y) * 1e-4, found));
        EXPECT_EQ(found.text, "x = " + valueText(1000.0 + 10 * cell.first) +
                                  ", y = " + valueText(2000.0 + 10 * (29 - cell.second)) +
                                  ", z = " + valueText(100 + cell.first - 0.5 * cell.second));
        EXPECT_NEAR(found.x, place.x, 1e-6);
        EXPECT_NEAR(found.y, place.y, 1e-6);
    }
    EXPECT_EQ(textAt(plot, 0.01, 0.99), "");
}

TEST(ValueAt, AGapHasNoValueAndALoneCellHas)
{
    const auto gap = gridOf(21, 21, [](int column, int row) {
        const bool isGap = std::abs(column - 10) < 5 && std::abs(row - 10) < 5;
        return isGap && (column != 10 || row != 10) ? missing : 1.0;
    });
    const GridPlot plot(gap);
    const Point lone = placeOfCell(*gap, 10, 10);
    EXPECT_NE(textAt(plot, lone.x, lone.y), "");
    const SurfaceShape shape(*gap);
    const StrokePoint hole = cameraFor({}, shape, FrameSize()).project({shape.x(12.5), shape.y(10), shape.z(1)});
    EXPECT_EQ(textAt(plot, hole.x / Width, hole.y / Height), "");
}

TEST(ValueAt, AHillHidesWhatIsBehindIt)
{
    const auto grid = gridOf(61, 61, [](int, int row) { return row == 40 ? 100.0 : row * 0.1; });
    GridPlot plot(grid);
    plot.rotate(-28, -20); // from the south, low
    SurfaceView view;
    view.aboutVertical = 0;
    view.tilt = 13;
    const Point behind = placeOfCell(*grid, 30, 35, view);
    const std::string text = textAt(plot, behind.x, behind.y);
    EXPECT_NE(text.find(", y = 19"), std::string::npos) << text << ": the foot of the wall in front of it";
}

TEST(ValueAt, NineMillionCellsAreSearchedInAMoment)
{
    const auto grid =
        gridOf(3000, 3000, [](int column, int row) { return std::sin(column * 0.05) * std::cos(row * 0.03); });
    GridPlot plot(grid);
    const double usual = secondsOf(plot, {0.45, 0.5}, 5);
    plot.rotate(0, -27);
    const double low = secondsOf(plot, {0.45, 0.5}, 5);
    RecordProperty("usual", std::to_string(usual));
    RecordProperty("low", std::to_string(low));
    EXPECT_LT(usual, 0.1);
    EXPECT_LT(low, 0.1);
}
