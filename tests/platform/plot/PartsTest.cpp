#include "engine/plot/Palette.h"
#include "engine/plot/surface/Contours.h"
#include "engine/plot/surface/SurfaceMesh.h"
#include "engine/plot/surface/SurfaceShape.h"
#include "engine/plot/xy/SeriesPath.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

const Rect square{0, 0, 100, 100};

/// All lines of a series, drawn into 0..100 both ways.
std::vector<std::vector<StrokePoint>> linesOf(const Table& table, AxisRange x, AxisRange y,
                                              std::vector<StrokePoint>* dots = nullptr)
{
    SeriesPath path(seriesOf(table, noCheckpoint()).front(), {x, y, square}, 1);
    SeriesPath::Portion portion;
    std::vector<std::vector<StrokePoint>> lines;
    while (path.next(portion)) {
        lines.insert(lines.end(), portion.lines.begin(), portion.lines.end());
        if (dots)
            dots->insert(dots->end(), portion.dots.begin(), portion.dots.end());
    }
    return lines;
}

struct WholeMesh {
    std::vector<MeshVertex> vertices;
    std::vector<std::size_t> indices;
};

WholeMesh wholeMesh(const std::shared_ptr<Grid>& grid, int level = 0)
{
    const SurfaceShape shape(*grid);
    const SurfaceLevels levels(grid, noCheckpoint());
    const SurfaceMesh mesh(levels, shape, level);
    WholeMesh all;
    MeshPart part;
    for (int row = 0; row < mesh.pieceRows(); ++row)
        for (int column = 0; column < mesh.pieceColumns(); ++column) {
            mesh.makePiece(column, row, part);
            for (unsigned index : part.indices)
                all.indices.push_back(all.vertices.size() + index);
            all.vertices.insert(all.vertices.end(), part.vertices.begin(), part.vertices.end());
        }
    return all;
}

double flatArea(const WholeMesh& part)
{
    double area = 0;
    for (std::size_t i = 0; i < part.indices.size(); i += 3) {
        const float* a = part.vertices[part.indices[i]].position;
        const float* b = part.vertices[part.indices[i + 1]].position;
        const float* c = part.vertices[part.indices[i + 2]].position;
        area += ((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])) / 2;
    }
    return area;
}

double flat(int, int)
{
    return 1;
}

} // namespace

TEST(ClipLine, CutsAtTheBorder)
{
    Point a{-50, 50};
    Point b{150, 50};
    ASSERT_TRUE(clipLine(square, a, b));
    EXPECT_DOUBLE_EQ(a.x, 0);
    EXPECT_DOUBLE_EQ(b.x, 100);
    Point c{-50, 60};
    Point d{60, 170};
    EXPECT_FALSE(clipLine(square, c, d)) << "passes the corner";
}

TEST(TriangleMeetsRect, AlsoWhenOneHoldsTheOther)
{
    EXPECT_TRUE(triangleMeetsRect(square, {-500, -500}, {700, -500}, {0, 900}));
    EXPECT_TRUE(triangleMeetsRect(square, {40, 40}, {60, 40}, {50, 60}));
    EXPECT_FALSE(triangleMeetsRect(square, {140, 40}, {160, 40}, {150, 60}));
    EXPECT_FALSE(triangleMeetsRect(square, {90, 130}, {130, 90}, {130, 130}));
}

TEST(SeriesPath, AGapEndsALine)
{
    const auto table = tableOf({{1, 2, missing, 4, 5}});
    const auto lines = linesOf(*table, {0, 4}, {0, 5});
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].back().x, 25, 1e-9);
    EXPECT_NEAR(lines[1].front().x, 75, 1e-9);
}

TEST(SeriesPath, AValueBetweenGapsIsADot)
{
    const auto table = tableOf({{missing, 2, missing, 4, 5}});
    std::vector<StrokePoint> dots;
    EXPECT_EQ(linesOf(*table, {0, 4}, {0, 5}, &dots).size(), 1u);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_NEAR(dots[0].x, 25, 1e-9);
    EXPECT_NEAR(dots[0].y, 40, 1e-9);
}

TEST(SeriesPath, KeepsTheExtremesOfManyRowsInOneColumnOfPixels)
{
    std::vector<double> values(200000, 5);
    values[100123] = 9;
    values[150321] = 1;
    const auto lines = linesOf(*tableOf({values}), {0, 200000}, {0, 10});
    std::size_t points = 0;
    double highest = 0;
    double lowest = 100;
    for (const auto& line : lines)
        for (const StrokePoint& point : line) {
            ++points;
            highest = std::max(highest, point.y);
            lowest = std::min(lowest, point.y);
        }
    EXPECT_LT(points, 600u);
    EXPECT_NEAR(highest, 90, 1e-9);
    EXPECT_NEAR(lowest, 10, 1e-9);
}

TEST(SeriesPath, BlocksOfRowsLookLikeTheirRows)
{
    std::mt19937 random(5);
    std::normal_distribution<double> noise;
    std::vector<double> values(60000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i / 7000 == 3 && i % 700 == 5 ? missing : 50 + 10 * noise(random);
    const auto table = tableOf({values});
    std::swap(table->columns[0].values[20000], table->columns[0].values[20900]); // it goes back here
    for (const double from : {0.0, 12345.6}) {
        Series series = seriesOf(*table, noCheckpoint()).front();
        const AxisMap map{{from, 60000}, {0, 100}, square};
        const auto pathOf = [&] {
            SeriesPath path(series, map, 1);
            SeriesPath::Portion portion;
            std::vector<Point> points;
            while (path.next(portion))
                for (const auto& line : portion.lines)
                    for (const StrokePoint& point : line)
                        points.push_back({point.x, point.y});
            return points;
        };
        const std::vector<Point> withBlocks = pathOf();
        series.blocks = nullptr;
        const std::vector<Point> without = pathOf();
        // Portions end elsewhere, and where one ends its last point comes again.
        const auto distinct = [](std::vector<Point> points) {
            points.erase(
                std::unique(points.begin(), points.end(), [](Point a, Point b) { return a.x == b.x && a.y == b.y; }),
                points.end());
            return points;
        };
        const std::vector<Point> a = distinct(withBlocks);
        const std::vector<Point> b = distinct(without);
        ASSERT_EQ(a.size(), b.size()) << from;
        for (std::size_t i = 0; i < a.size(); ++i)
            ASSERT_TRUE(a[i].x == b[i].x && a[i].y == b[i].y) << i;
    }
}

TEST(SeriesPath, ACoarsePathOfManyRowsIsTheirEnvelope)
{
    std::vector<double> values;
    for (int i = 0; i < 100000; ++i)
        values.push_back(i == 45678 ? 90 : i == 71234 ? 5 : 50 + i % 7);
    const auto table = tableOf({values});
    SeriesPath path(seriesOf(*table, noCheckpoint()).front(), {{0, 100000}, {0, 100}, square}, 1, Detail::Coarse);
    SeriesPath::Portion portion;
    std::vector<Rect> bars;
    while (path.next(portion))
        bars.insert(bars.end(), portion.bars.begin(), portion.bars.end());
    ASSERT_EQ(bars.size(), 100u) << "one for each column of pixels";
    for (const Rect& bar : bars) {
        EXPECT_NEAR(bar.y2, bar.x1 == 45 ? 90 : 56, 1e-9);
        EXPECT_NEAR(bar.y1, bar.x1 == 71 ? 5 : 50, 1e-9);
    }
}

TEST(SeriesPath, CutsOffWhatIsFarOutside)
{
    const auto lines = linesOf(*tableOf({{0, 1e12, 0}}), {0, 2}, {0, 1});
    ASSERT_EQ(lines.size(), 2u);
    for (const auto& line : lines)
        for (const StrokePoint& point : line)
            EXPECT_LT(point.y, 200);
}

TEST(Stroke, WidthIsSpreadOnBothSidesWithASoftBorder)
{
    Stroke stroke(4, {0, 0, 0, 255});
    const StrokePoint points[] = {{0, 10, 0}, {50, 10, 0}};
    stroke.addLine(points, 2);
    float low = 100;
    float high = 0;
    for (const StrokeVertex& vertex : stroke.vertices()) {
        low = std::min(low, vertex.y);
        high = std::max(high, vertex.y);
        EXPECT_EQ(vertex.color.alpha, std::fabs(vertex.y - 10) > 2 ? 0 : 255);
    }
    EXPECT_FLOAT_EQ(low, 7.5F);
    EXPECT_FLOAT_EQ(high, 12.5F);
}

TEST(Stroke, HairlinesArePaler)
{
    Stroke stroke(0.25, {0, 0, 0, 200});
    const StrokePoint points[] = {{0, 0, 0}, {50, 0, 0}};
    stroke.addLine(points, 2);
    EXPECT_EQ(stroke.vertices()[1].color.alpha, 50);
}

TEST(Stroke, SpikesDoNotShootBeyondTheirPoint)
{
    Stroke stroke(3, {0, 0, 0, 255});
    const StrokePoint points[] = {{0, 0, 0}, {1, 100, 0}, {2, 0, 0}};
    stroke.addLine(points, 3);
    for (const StrokeVertex& vertex : stroke.vertices())
        EXPECT_LT(vertex.y, 103);
}

TEST(Stroke, PointsUponEachOtherMakeNoLine)
{
    Stroke stroke(3, {0, 0, 0, 255});
    const StrokePoint points[] = {{5, 5, 0}, {5, 5, 0}, {5, 5, 0}};
    stroke.addLine(points, 3);
    EXPECT_TRUE(stroke.empty());
}

TEST(Palette, LineColorsDifferFromEachOtherAndFromTheSelection)
{
    std::set<int> greys;
    for (std::size_t i = 0; i < 7; ++i) {
        const Color color = lineColor(i);
        const int distance = std::abs(color.red - palette::Selected.red) +
                             std::abs(color.green - palette::Selected.green) +
                             std::abs(color.blue - palette::Selected.blue);
        EXPECT_GT(distance, 80) << i;
        greys.insert(color.red * 65536 + color.green * 256 + color.blue);
    }
    EXPECT_EQ(greys.size(), 7u);
}

TEST(Palette, HeightColorsGetBrighterUpwards)
{
    double last = 0;
    for (int i = 0; i <= 20; ++i) {
        const Color color = heightColor(i / 20.0);
        const double brightness = 0.3 * color.red + 0.59 * color.green + 0.11 * color.blue;
        EXPECT_GT(brightness, last);
        last = brightness;
    }
}

TEST(SurfaceShape, BandsAreRoundAndHoldAllHeights)
{
    const SurfaceShape shape(*gridOf(10, 10, [](int column, int row) { return 213.0 + column * 13 + row; }));
    EXPECT_LE(shape.heights().from, 213);
    EXPECT_GE(shape.heights().to, 213 + 9 * 14);
    const double step = shape.bandEdges()[1] - shape.bandEdges()[0];
    EXPECT_NEAR(std::remainder(shape.heights().from, step), 0, 1e-9);
}

TEST(SurfaceShape, ModerateReliefIsTrueToScaleAndFlatReliefIsRaised)
{
    const auto reliefOf = [](double difference) {
        const SurfaceShape shape(*gridOf(101, 101, [=](int column, int) { return column * difference / 100; }));
        return shape.z(difference) - shape.z(0);
    };
    EXPECT_NEAR(reliefOf(25), 25 / 101.0, 1e-3);
    EXPECT_NEAR(reliefOf(0.5), 0.17, 0.02);
    EXPECT_LE(reliefOf(120), 0.35);
    EXPECT_NEAR(reliefOf(1e6), 0.25, 0.02) << "metres over degrees";
}

TEST(SurfaceMesh, CoversEveryCellOnceWithTrianglesThatFaceUp)
{
    const auto grid = gridOf(41, 41, flat);
    const SurfaceShape shape(*grid);
    EXPECT_NEAR(flatArea(wholeMesh(grid)), 40 * 40 * shape.stepX() * shape.stepY(), 1e-5);
    EXPECT_NEAR(flatArea(wholeMesh(grid, 2)), 40 * 40 * shape.stepX() * shape.stepY(), 1e-5)
        << "the last column and row count also where the level has fewer";
}

TEST(SurfaceMesh, AGapIsAHole)
{
    const auto grid = gridOf(41, 41, [](int column, int row) { return column == 20 && row == 20 ? missing : 1; });
    const SurfaceShape shape(*grid);
    // Four cells around the gap keep the half that needs it not.
    EXPECT_NEAR(flatArea(wholeMesh(grid)), (40 * 40 - 2) * shape.stepX() * shape.stepY(), 1e-5);
}

TEST(SurfaceMesh, ValuesWithoutNeighboursAreLevelCells)
{
    const auto one = gridOf(9, 9, [](int column, int row) { return column == 4 && row == 2 ? 7 : missing; });
    EXPECT_NEAR(flatArea(wholeMesh(one)), 1 / 81.0, 1e-6);
    const auto row = gridOf(8, 1, flat);
    const SurfaceShape rowShape(*row);
    EXPECT_NEAR(flatArea(wholeMesh(row)), 8 * rowShape.stepX() * rowShape.stepY(), 1e-6);
}

TEST(SurfaceMesh, NormalsLeanAwayFromTheRise)
{
    const auto eastwards = wholeMesh(gridOf(9, 9, [](int column, int) { return column * 1.0; }));
    for (const MeshVertex& vertex : eastwards.vertices) {
        EXPECT_LT(vertex.normal[0], -3000);
        EXPECT_NEAR(vertex.normal[1], 0, 1);
    }
    const auto northwards = wholeMesh(gridOf(9, 9, [](int, int row) { return -row * 1.0; }));
    for (const MeshVertex& vertex : northwards.vertices)
        EXPECT_LT(vertex.normal[1], -3000);
}

namespace {

ContourLines contoursOfGrid(const std::shared_ptr<Grid>& grid, double tolerance)
{
    const SurfaceShape shape(*grid);
    const SurfaceLevels levels(grid, noCheckpoint());
    MeshPart part;
    SurfaceMesh(levels, shape, 0).makePiece(0, 0, part);
    return contoursOf(part, shape, tolerance);
}

} // namespace

TEST(Contours, LieAtTheBandBorders)
{
    const auto grid = gridOf(33, 33, [](int column, int row) { return column + 0.1 * row; });
    const SurfaceShape shape(*grid);
    const ContourLines lines = contoursOfGrid(grid, 0);
    EXPECT_EQ(lines.size(), shape.bandEdges().size() - 2) << "one for each border inside";
    const double step = shape.z(shape.bandEdges()[1]) - shape.z(shape.bandEdges()[0]);
    for (const ContourLine& line : lines) {
        EXPECT_GE(line.size(), 2u);
        for (const glm::dvec3& point : line) {
            EXPECT_NEAR(std::remainder(point.z + shape.halfZ(), step), 0, 1e-5);
            EXPECT_NEAR(point.z, line.front().z, 1e-6);
        }
    }
}

TEST(Contours, AroundAHillAreClosed)
{
    const ContourLines lines = contoursOfGrid(hill(31), 0);
    ASSERT_FALSE(lines.empty());
    for (const ContourLine& line : lines) {
        EXPECT_NEAR(line.front().x, line.back().x, 1e-9);
        EXPECT_NEAR(line.front().y, line.back().y, 1e-9);
    }
}

TEST(Contours, StraightLinesNeedFewPoints)
{
    const auto slope = gridOf(33, 33, [](int column, int) { return column * 1.0 + 0.001; });
    for (const ContourLine& line : contoursOfGrid(slope, 1e-4))
        EXPECT_LE(line.size(), 10u);
}

TEST(Contours, ALevelSurfaceHasNone)
{
    EXPECT_TRUE(contoursOfGrid(gridOf(5, 5, flat), 0).empty());
}
