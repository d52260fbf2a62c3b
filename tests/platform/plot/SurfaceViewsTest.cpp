// Surfaces from above and from the sides, with other heights and other colours.

#include "engine/plot/surface/SurfacePlot.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <set>
#include <string>
#include <utility>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr int Width = 640;
constexpr int Height = 480;

/// A ramp that rises eastwards, with a spike in the middle.
std::shared_ptr<Grid> rampWithSpike(double spike)
{
    return gridOf(101, 101, [spike](int column, int row) { return column == 50 && row == 50 ? spike : column * 1.0; });
}

SurfaceLayout layoutOf(const SurfacePlot& plot, const Grid& grid)
{
    return layOut(grid, plot.shape(), plot.view(), {Width, Height, 1});
}

Point placeOf(const SurfacePlot& plot, const Grid& grid, double column, double row, double height)
{
    const SurfaceShape& shape = plot.shape();
    const StrokePoint at = layoutOf(plot, grid).camera.project({shape.x(column), shape.y(row), shape.z(height)});
    return {at.x, at.y};
}

/// The labels of an axis; none for one that is not shown.
std::vector<std::string> labelsOf(const SurfaceLayout& layout, int object)
{
    std::vector<std::string> labels;
    for (const SurfaceAxis& axis : layout.axes)
        for (const TextItem& label : axis.labels)
            if (axis.object == object)
                labels.push_back(label.text);
    return labels;
}

bool hasText(const SurfaceLayout& layout, int object)
{
    for (const PlotText& text : layout.texts)
        if (text.object == object)
            return true;
    return false;
}

/// How many colours a picture has that are neither white nor grey, told apart roughly.
std::size_t countColors(const Picture& picture)
{
    std::set<int> colors;
    for (int y = 60; y < Height - 60; y += 2)
        for (int x = 60; x < Width - 160; x += 2) {
            const Picture::Pixel pixel = picture.at(x, y);
            if (std::abs(pixel.red - pixel.blue) > 30)
                colors.insert((pixel.red / 24 * 16 + pixel.green / 24) * 16 + pixel.blue / 24);
        }
    return colors.size();
}

bool hasInk(const Picture& picture, const Rect& rect)
{
    for (int y = static_cast<int>(rect.y1); y < rect.y2; ++y)
        for (int x = static_cast<int>(rect.x1); x < rect.x2; ++x)
            if (!picture.at(x, y).isWhite())
                return true;
    return false;
}

std::size_t colorsOf(SurfacePlot& plot)
{
    Picture picture(Width, Height);
    EXPECT_TRUE(picture.draw(plot));
    return countColors(picture);
}

} // namespace

TEST(SurfaceViews, TheMapHasTheNorthUpAndNoPerspective)
{
    const auto grid = hill(61);
    GridPlot plot(grid);
    plot.lookFrom(Side::Above);
    const Point southWest = placeOf(plot, *grid, 0, 60, 0);
    const Point southEast = placeOf(plot, *grid, 60, 60, 0);
    const Point northWest = placeOf(plot, *grid, 0, 0, 0);
    EXPECT_NEAR(southWest.y, southEast.y, 1e-6);
    EXPECT_NEAR(southWest.x, northWest.x, 1e-6);
    EXPECT_GT(northWest.y, southWest.y + 200);
    EXPECT_NEAR(southEast.x - southWest.x, northWest.y - southWest.y, 1e-6);
    const Point low = placeOf(plot, *grid, 10, 10, 0);
    const Point high = placeOf(plot, *grid, 10, 10, 18);
    EXPECT_NEAR(low.x, high.x, 1e-6) << "heights move nothing";
    EXPECT_NEAR(low.y, high.y, 1e-6);
}

TEST(SurfaceViews, TheMapIsDrawnWhereItsPlacesAre)
{
    const auto grid = gridOf(60, 40, [](int column, int row) { return column < 20 && row < 20 ? 10.0 : 0.0; });
    GridPlot plot(grid);
    plot.lookFrom(Side::Above);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const auto at = [&](int column, int row) {
        const Point place = placeOf(plot, *grid, column, row, 0);
        return picture.at(static_cast<int>(place.x), static_cast<int>(place.y));
    };
    EXPECT_GT(at(10, 10).red, at(40, 10).red + 80) << "the north-west is high and bright";
    EXPECT_GT(at(10, 10).red, at(10, 30).red + 80);
    EXPECT_GT(at(10, 10).red, at(40, 30).red + 80);
    ShownValue value;
    const Point place = placeOf(plot, *grid, 45, 30, 0);
    ASSERT_TRUE(plot.valueAt(place.x / Width, place.y / Height, value));
    EXPECT_EQ(value.text, "x = 45, y = 9, z = 0");
}

TEST(SurfaceViews, TheMapHasReadableScalesOfXAndYAndNoneOfZ)
{
    for (const auto& size : {std::pair{61, 61}, std::pair{200, 20}, std::pair{20, 200}}) {
        const auto grid = gridOf(size.first, size.second, [](int column, int) { return column * 1.0; });
        GridPlot plot(grid);
        plot.lookFrom(Side::Above);
        const SurfaceLayout layout = layoutOf(plot, *grid);
        EXPECT_GE(labelsOf(layout, surfaceobject::XAxis).size(), 2U) << size.first;
        EXPECT_GE(labelsOf(layout, surfaceobject::YAxis).size(), 2U) << size.first;
        EXPECT_EQ(layout.axes.size(), 2U);
        EXPECT_FALSE(hasText(layout, surfaceobject::ZTitle));
        for (const SurfaceAxis& axis : layout.axes)
            for (const TextItem& label : axis.labels)
                EXPECT_TRUE(Rect({0, 0, Width, Height}).contains({textRect(label).x1, textRect(label).y1}));
    }
}

TEST(SurfaceViews, FromASideHeightsAndOneDirectionOfTheFloorAreTold)
{
    const auto grid = gridOf(61, 41, [](int column, int row) { return 80 - column - row * 0.5; });
    GridPlot plot(grid);
    plot.lookFrom(Side::South);
    SurfaceLayout layout = layoutOf(plot, *grid);
    EXPECT_GE(labelsOf(layout, surfaceobject::XAxis).size(), 2U);
    EXPECT_GE(labelsOf(layout, surfaceobject::ZAxis).size(), 2U);
    EXPECT_EQ(layout.axes.size(), 2U);
    EXPECT_LT(placeOf(plot, *grid, 0, 40, 0).x, placeOf(plot, *grid, 60, 40, 0).x) << "east is to the right";
    EXPECT_GT(placeOf(plot, *grid, 0, 40, 50).y, placeOf(plot, *grid, 0, 40, 0).y + 20);
    plot.lookFrom(Side::East);
    layout = layoutOf(plot, *grid);
    EXPECT_GE(labelsOf(layout, surfaceobject::YAxis).size(), 2U);
    EXPECT_GE(labelsOf(layout, surfaceobject::ZAxis).size(), 2U);
    EXPECT_LT(placeOf(plot, *grid, 0, 40, 0).x, placeOf(plot, *grid, 0, 0, 0).x) << "north is to the right";
    EXPECT_GT(colorsOf(plot), 3U);
}

TEST(SurfaceViews, TurningAndFittingLeaveTheMap)
{
    GridPlot plot(hill(31));
    plot.lookFrom(Side::Above);
    plot.zoom(3, 0.4, 0.4);
    plot.showAll();
    EXPECT_TRUE(plot.view().isParallel);
    EXPECT_EQ(plot.view().zoom, 1);
    plot.rotate(10, -20);
    EXPECT_FALSE(plot.view().isParallel);
    EXPECT_EQ(plot.view().tilt, 70);
    plot.lookFrom(Side::South);
    plot.fit();
    EXPECT_FALSE(plot.view().isParallel);
    EXPECT_EQ(plot.view().tilt, SurfaceView().tilt);
}

TEST(SurfaceViews, ExaggeratedHeightsAreSoManyTimesAsHighAndKeepTheirNumbers)
{
    const auto grid = hill(61);
    GridPlot plot(grid);
    const double usual = plot.shape().halfZ() / plot.shape().halfX();
    const std::vector<std::string> labels = labelsOf(layoutOf(plot, *grid), surfaceobject::ZAxis);
    ASSERT_GE(labels.size(), 2U);
    for (const double factor : {0.5, 2.0, 5.0, 10.0, 100.0}) {
        plot.setExaggeration(factor);
        EXPECT_NEAR(plot.shape().halfZ() / plot.shape().halfX(), factor * usual, 1e-9 * factor);
        EXPECT_LE(plot.shape().halfZ(), 0.71) << "not nearer to the viewer than the picture allows";
        EXPECT_NEAR(plot.shape().stepX() * 61, 2 * plot.shape().halfX(), 1e-9);
        const std::vector<std::string> now = labelsOf(layoutOf(plot, *grid), surfaceobject::ZAxis);
        EXPECT_GE(now.size(), factor > 1 ? 2U : 0U) << factor;
        for (const std::string& label : now)
            EXPECT_LE(std::stod(label), plot.shape().heights().to);
        EXPECT_GT(colorsOf(plot), 3U) << factor;
    }
}

TEST(SurfaceViews, ASpikeDoesNotSqueezeTheColoursOfTheMiddleHeights)
{
    for (const double spike : {1e5, 1e30}) {
        const auto grid = rampWithSpike(spike);
        GridPlot plot(grid);
        plot.lookFrom(Side::Above);
        const std::size_t all = colorsOf(plot);
        plot.clipColors(true);
        EXPECT_TRUE(plot.areColorsClipped());
        EXPECT_LE(plot.shape().bandEdges().front(), 2);
        EXPECT_GE(plot.shape().bandEdges().back(), 98);
        EXPECT_LE(plot.shape().bandEdges().back(), 110);
        EXPECT_GT(plot.shape().heights().to, spike * 0.9) << "the z axis tells all heights";
        EXPECT_GE(colorsOf(plot), all + 4);
        const SurfaceLayout layout = layoutOf(plot, *grid);
        EXPECT_EQ(layout.barLabels.back().text.rfind("≥ ", 0), 0U) << layout.barLabels.back().text;
        EXPECT_EQ(layout.barLabels.front().text, "0") << "nothing is below";
        plot.clipColors(false);
        EXPECT_EQ(colorsOf(plot), all);
    }
}

TEST(SurfaceViews, BothEndsOfTheColourBarTellThatThereIsMore)
{
    const auto grid = gridOf(
        100, 100, [](int column, int row) { return row == 0 ? (column % 2 == 0 ? -1e4 : 1e4) : 20.0 + row % 50; });
    GridPlot plot(grid);
    plot.clipColors(true);
    const SurfaceLayout layout = layoutOf(plot, *grid);
    EXPECT_EQ(layout.barLabels.front().text.rfind("≤ ", 0), 0U) << layout.barLabels.front().text;
    EXPECT_EQ(layout.barLabels.back().text.rfind("≥ ", 0), 0U) << layout.barLabels.back().text;
    for (std::size_t i = 1; i + 1 < layout.barLabels.size(); ++i)
        EXPECT_EQ(layout.barLabels[i].text.find(' '), std::string::npos);
}

// In a low frame not every colour has a label: text stays legible.
TEST(SurfaceViews, TheLastLabelOfAClippedColourBarIsAlwaysDrawnAtItsEnd)
{
    constexpr double LeastText = 9;
    std::set<std::pair<std::size_t, std::size_t>> kinds; // colours, labels
    for (const double steepness : {1.0, 1.3, 1.7, 2.2, 3.0, 4.4})
        for (const int height : {120, 200, 500}) {
            const auto grid = gridOf(101, 101, [steepness](int column, int row) {
                return column == 50 && row == 50 ? 1e5 : column * steepness;
            });
            GridPlot plot(grid);
            plot.clipColors(true);
            Picture picture(Width, height);
            Drawing drawing = picture.drawing();
            drawing.leastText = LeastText;
            CountingCheckpoint checkpoint;
            ASSERT_TRUE(plot.draw(drawing, checkpoint));
            picture.refresh();
            const SurfaceLayout layout = layOut(*grid, plot.shape(), plot.view(), frameSizeOf(drawing));
            const std::vector<TextItem>& labels = layout.barLabels;
            kinds.insert({plot.shape().bandEdges().size(), labels.size()});
            EXPECT_EQ(labels.back().text.rfind("≥ ", 0), 0U) << height << ": " << labels.back().text;
            EXPECT_NEAR(labels.back().anchor.y, layout.bar.y2, 1) << height;
            EXPECT_TRUE(hasInk(picture, textRect(labels.back()))) << height;
            for (std::size_t i = 1; i < labels.size(); ++i)
                EXPECT_LT(textRect(labels[i - 1]).y2, textRect(labels[i]).y1) << height << ": " << labels[i].text;
        }
    const auto isThinnedUnevenly = [](const auto& kind) { return kind.second < kind.first && kind.first % 2 == 0; };
    EXPECT_TRUE(std::any_of(kinds.begin(), kinds.end(), isThinnedUnevenly)) << "each second label would miss the last";
}

TEST(SurfaceViews, TheMiddleHeightsOfASampleAreThoseOfTheGrid)
{
    const auto even = gridOf(1000, 700, [](int column, int row) { return (column * 7919 + row * 104729) % 10000; });
    const AxisRange middle = middleHeights(*even, 0.02);
    EXPECT_NEAR(middle.from, 200, 40);
    EXPECT_NEAR(middle.to, 9800, 40);
    // Each 31st cell would be of a few columns only.
    const auto columns = gridOf(992, 998, [](int column, int) { return column; });
    EXPECT_NEAR(middleHeights(*columns, 0.02).from, 20, 5);
    EXPECT_NEAR(middleHeights(*columns, 0.02).to, 971, 5);
    const auto gaps = gridOf(500, 500, [](int column, int row) { return column == 250 ? row : missing; });
    EXPECT_NEAR(middleHeights(*gaps, 0.02).from, 10, 3);
    EXPECT_NEAR(middleHeights(*gaps, 0.02).to, 489, 3);
    const auto none = gridOf(5, 5, [](int, int) { return missing; });
    GridPlot empty(none);
    empty.clipColors(true);
    EXPECT_EQ(empty.shape().bandEdges().front(), 0);
    const auto flat = gridOf(5, 5, [](int, int) { return 7; });
    GridPlot plain(flat);
    plain.clipColors(true);
    EXPECT_LE(plain.shape().bandEdges().front(), 7);
}

// A run under valgrind or a sanitizer takes longer.
TEST(SurfaceViews, TheMiddleHeightsOfNineMillionCellsAreFoundInAMoment)
{
    const auto grid = gridOf(3000, 3000, [](int column, int row) { return std::sin(column * 0.05) * row; });
    const std::clock_t begun = std::clock();
    const AxisRange middle = middleHeights(*grid, 0.02);
    const double seconds = static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
    RecordProperty("seconds", std::to_string(seconds));
    EXPECT_LT(seconds, 0.1);
    EXPECT_LT(middle.from, -2000);
    EXPECT_GT(middle.to, 2000);
}
