#include "engine/plot/surface/SurfacePlot.h"
#include "engine/gl/GLFunctions.h"
#include "engine/plot/Palette.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr int Width = 640;
constexpr int Height = 480;

SurfaceLayout layoutOf(const SurfacePlot& plot, const Grid& grid)
{
    return layOut(grid, SurfaceShape(grid), plot.view(), {Width, Height, 1});
}

Point placeOf(const SurfacePlot& plot, const Grid& grid, int column, int row)
{
    const SurfaceShape shape(grid);
    const StrokePoint place =
        layoutOf(plot, grid).camera.project({shape.x(column), shape.y(row), shape.z(grid.at(column, row))});
    return {place.x, place.y};
}

Picture::Pixel pixelOf(const Picture& picture, Point place)
{
    return picture.at(static_cast<int>(place.x), static_cast<int>(place.y));
}

bool isSurfaceColored(Picture::Pixel pixel)
{
    const int spread = std::max({pixel.red, pixel.green, pixel.blue}) - std::min({pixel.red, pixel.green, pixel.blue});
    return spread > 25;
}

int pickAt(SurfacePlot& plot, Point pixel, const PickFilter& filter = {})
{
    return plot.pick((pixel.x - 2) / Width, (pixel.y - 2) / Height, (pixel.x + 2) / Width, (pixel.y + 2) / Height,
                     filter);
}

Point middleOf(const Rect& rect)
{
    return {(rect.x1 + rect.x2) / 2, (rect.y1 + rect.y2) / 2};
}

Point middleOf(const BoxLine& line)
{
    return {(line.from.x + line.to.x) / 2, (line.from.y + line.to.y) / 2};
}

std::size_t countSelected(const Picture& picture)
{
    return picture.countNear(palette::Selected.red, palette::Selected.green, palette::Selected.blue, 3);
}

} // namespace

TEST(SurfacePlot, HigherGroundIsDrawnHigherAndBrighter)
{
    const auto grid = hill(61);
    GridPlot plot(grid);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const Point top = placeOf(plot, *grid, 30, 30);
    const Point foot = placeOf(plot, *grid, 55, 55);
    EXPECT_GT(top.y, foot.y);
    const Picture::Pixel bright = pixelOf(picture, {top.x, top.y - 3});
    EXPECT_TRUE(isSurfaceColored(bright));
    EXPECT_GT(bright.red, 190) << "the highest band is a pale yellow";
    EXPECT_LT(pixelOf(picture, foot).red, 110) << "the lowest one a dark blue";
}

TEST(SurfacePlot, HeightRaisesTheSamePlace)
{
    const auto at = [](double middle) {
        const auto grid = gridOf(21, 21, [middle](int column, int row) {
            return column == 10 && row == 10 ? middle : column == 0 && row == 0 ? 4 : 0;
        });
        return placeOf(GridPlot(grid), *grid, 10, 10).y;
    };
    EXPECT_GT(at(4), at(2) + 5);
    EXPECT_GT(at(2), at(0) + 5);
}

TEST(SurfacePlot, HillsHideWhatIsBehindThem)
{
    // A high wall in front of a dark plain: behind it the wall's colours show.
    const auto grid = gridOf(41, 41, [](int, int row) { return row > 26 && row < 33 ? 12.0 : 0; });
    GridPlot plot(grid);
    plot.rotate(-plot.view().aboutVertical, 12 - plot.view().tilt);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const Picture::Pixel behind = pixelOf(picture, placeOf(plot, *grid, 20, 2));
    const Picture::Pixel front = pixelOf(picture, placeOf(plot, *grid, 20, 37));
    EXPECT_GT(behind.red + behind.green, front.red + front.green + 60);
}

TEST(SurfacePlot, AGapIsAHoleInTheSurface)
{
    const auto grid = gridOf(31, 31, [](int column, int row) {
        return std::abs(column - 15) < 4 && std::abs(row - 15) < 4 ? missing : 5.0 + column * 0.01;
    });
    GridPlot plot(grid);
    plot.rotate(0, 90);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const SurfaceShape shape(*grid);
    const StrokePoint hole = layoutOf(plot, *grid).camera.project({shape.x(15), shape.y(15), 0});
    std::size_t white = 0;
    for (int dy = -4; dy <= 4; ++dy)
        for (int dx = -4; dx <= 4; ++dx)
            white += isSurfaceColored(pixelOf(picture, {hole.x + dx, hole.y + dy})) ? 0 : 1;
    EXPECT_EQ(white, 81u);
    EXPECT_TRUE(isSurfaceColored(pixelOf(picture, placeOf(plot, *grid, 8, 15))));
}

TEST(SurfacePlot, ShadingChangesWithTheDirectionOfSight)
{
    // A level cannot change its shading by turning, a slope must.
    const auto slope = gridOf(31, 31, [](int column, int) { return column * 1.0; });
    GridPlot plot(slope);
    const auto brightness = [&](double turn) {
        plot.fit();
        plot.rotate(turn - plot.view().aboutVertical, 0);
        Picture picture(Width, Height);
        picture.draw(plot);
        double sum = 0;
        for (int row = 12; row <= 18; ++row) {
            const Picture::Pixel pixel = pixelOf(picture, placeOf(plot, *slope, 14, row));
            sum += pixel.red + pixel.green + pixel.blue;
        }
        return sum / 7;
    };
    const double towardsLight = brightness(0);
    const double awayFromLight = brightness(180);
    EXPECT_GT(towardsLight, awayFromLight * 1.15);
}

TEST(SurfacePlot, FitRestoresThePicture)
{
    GridPlot plot(hill(31));
    Picture first(Width, Height);
    first.draw(plot);
    const std::vector<unsigned char> before = first.bytes();
    plot.rotate(40, 20);
    plot.zoom(2, 0.3, 0.4);
    plot.translate(0.1, 0.1);
    first.clear();
    first.draw(plot);
    EXPECT_NE(first.bytes(), before);
    plot.fit();
    first.clear();
    first.draw(plot);
    EXPECT_EQ(first.bytes(), before);
}

TEST(SurfacePlot, ZoomKeepsThePlaceUnderThePoint)
{
    const auto grid = hill(31);
    GridPlot plot(grid);
    Picture(Width, Height).draw(plot);
    plot.translate(0.05, -0.07);
    const Point before = placeOf(plot, *grid, 22, 9);
    plot.zoom(2.5, before.x / Width, before.y / Height);
    plot.zoom(0.7, before.x / Width, before.y / Height);
    const Point after = placeOf(plot, *grid, 22, 9);
    EXPECT_NEAR(after.x, before.x, 1e-6);
    EXPECT_NEAR(after.y, before.y, 1e-6);
    const double apart = placeOf(plot, *grid, 23, 9).x - after.x;
    plot.zoom(2, 0.5, 0.5);
    EXPECT_NEAR(placeOf(plot, *grid, 23, 9).x - placeOf(plot, *grid, 22, 9).x, 2 * apart, 1e-6);
}

TEST(SurfacePlot, TranslateMovesByFractionsOfTheFrame)
{
    const auto grid = hill(31);
    GridPlot plot(grid);
    Picture(Width, Height).draw(plot);
    const Point before = placeOf(plot, *grid, 3, 9);
    plot.translate(0.25, -0.1);
    const Point after = placeOf(plot, *grid, 3, 9);
    EXPECT_NEAR(after.x - before.x, 0.25 * Width, 1e-6);
    EXPECT_NEAR(after.y - before.y, -0.1 * Height, 1e-6);
}

TEST(SurfacePlot, TheTiltStaysAboveTheGround)
{
    GridPlot plot(hill(11));
    plot.rotate(0, 1000);
    EXPECT_EQ(plot.view().tilt, 90);
    plot.rotate(0, -1000);
    EXPECT_GT(plot.view().tilt, 0);
    plot.rotate(1e9, 0);
    EXPECT_LE(std::fabs(plot.view().aboutVertical), 180);
}

TEST(SurfacePlot, TheWholeBoxFitsWheneverItIsTurned)
{
    const auto grid = hill(31);
    const SurfaceShape shape(*grid);
    GridPlot plot(grid);
    for (int turn = 0; turn < 24; ++turn) {
        for (double tilt : {3.0, 30.0, 60.0, 90.0}) {
            plot.rotate(15, tilt - plot.view().tilt);
            const Camera camera = layoutOf(plot, *grid).camera;
            for (int corner = 0; corner < 8; ++corner) {
                const StrokePoint at = camera.project({corner & 1 ? shape.halfX() : -shape.halfX(),
                                                       corner & 2 ? shape.halfY() : -shape.halfY(),
                                                       corner & 4 ? shape.halfZ() : -shape.halfZ()});
                EXPECT_TRUE((Rect{30, 30, Width - 60, Height - 15}).contains({at.x, at.y})) << turn << " " << tilt;
            }
        }
    }
}

TEST(SurfacePlot, PicksTheSurfaceWhereItIs)
{
    const auto grid = hill(31);
    GridPlot plot(grid);
    Picture(Width, Height).draw(plot);
    const PickFilter zones{true, false, false, true};
    EXPECT_EQ(pickAt(plot, {20, 20}, zones), 0);
    EXPECT_EQ(plot.selectedCount(), 0);
    EXPECT_EQ(pickAt(plot, placeOf(plot, *grid, 10, 20), zones), 1);
    EXPECT_EQ(plot.selectedCount(), 1);
    EXPECT_EQ(pickAt(plot, placeOf(plot, *grid, 10, 20), {false, true, true, true}), 0);
    plot.deselectAll();
    EXPECT_EQ(plot.selectedCount(), 0);
}

TEST(SurfacePlot, AHoleIsNotPicked)
{
    const auto grid = gridOf(31, 31, [](int column, int row) {
        return std::abs(column - 15) < 6 && std::abs(row - 15) < 6 ? missing : 5.0;
    });
    GridPlot plot(grid);
    Picture(Width, Height).draw(plot);
    const SurfaceShape shape(*grid);
    const StrokePoint hole = layoutOf(plot, *grid).camera.project({shape.x(15), shape.y(15), shape.z(5)});
    EXPECT_EQ(pickAt(plot, {hole.x, hole.y}, {true, false, false, true}), 0);
}

TEST(SurfacePlot, PicksTextsAxesAndTheColorBar)
{
    const auto grid = hill(31);
    GridPlot plot(grid);
    Picture(Width, Height).draw(plot);
    const SurfaceLayout layout = layoutOf(plot, *grid);
    EXPECT_EQ(pickAt(plot, middleOf(layout.bar), {false, true, false, true}), 1);
    EXPECT_EQ(pickAt(plot, middleOf(layout.bar), {true, false, true, true}), 0);
    EXPECT_EQ(pickAt(plot, middleOf(layout.axes[0].line), {false, true, false, true}), 1);
    for (const PlotText& text : layout.texts)
        EXPECT_EQ(pickAt(plot, middleOf(textRect(text.item)), {false, false, true, true}), 1);
    EXPECT_EQ(plot.selectedCount(), 2 + 5);
    EXPECT_EQ(plot.pick(0, 0, 1, 1, PickFilter{}), 1 + 4 + 5);
}

TEST(SurfacePlot, SelectedThingsAreSeen)
{
    const auto grid = hill(31);
    GridPlot plot(grid);
    Picture picture(Width, Height);
    picture.draw(plot);
    EXPECT_EQ(countSelected(picture), 0u);
    ASSERT_EQ(pickAt(plot, placeOf(plot, *grid, 10, 20), {true, false, false, true}), 1);
    picture.clear();
    picture.draw(plot);
    const std::size_t withSurface = countSelected(picture);
    EXPECT_GT(withSurface, 200u);
    ASSERT_EQ(pickAt(plot, middleOf(layoutOf(plot, *grid).bar), {false, true, false, true}), 1);
    picture.clear();
    picture.draw(plot);
    EXPECT_GT(countSelected(picture), withSurface + 100);
}

TEST(SurfacePlot, UnusualGridsAreDrawn)
{
    const auto five = [](int, int) { return 5.0; };
    const std::shared_ptr<Grid> grids[] = {
        gridOf(1, 1, five),
        gridOf(40, 1, five),
        gridOf(1, 40, [](int, int row) { return row * 1.0; }),
        gridOf(2000, 2, [](int column, int) { return column * 1.0; }),
        gridOf(20, 20, five),
        gridOf(20, 20, [](int column, int row) { return column == 7 && row == 9 ? -3 : missing; }),
        gridOf(20, 20, [](int column, int) { return column % 2 ? 1e30 : -1e30; }),
    };
    for (const std::shared_ptr<Grid>& grid : grids) {
        GridPlot plot(grid);
        plot.rotate(0, 40);
        Picture picture(Width, Height);
        EXPECT_TRUE(picture.draw(plot));
        EXPECT_EQ(currentGL().GetError(), GLenum(GL_NO_ERROR));
        const Rect bar = layoutOf(plot, *grid).bar;
        std::size_t surface = 0;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < static_cast<int>(bar.x1) - 2; ++x)
                surface += isSurfaceColored(picture.at(x, y)) ? 1 : 0;
        EXPECT_GT(surface, 60u) << grid->columns << " x " << grid->rows;
    }
}

TEST(SurfacePlot, NothingButGapsStillHasABox)
{
    GridPlot plot(gridOf(5, 5, [](int, int) { return missing; }));
    Picture picture(Width, Height);
    EXPECT_TRUE(picture.draw(plot));
    EXPECT_GT(picture.countInk(), 2000u);
    EXPECT_EQ(plot.pick(0, 0, 1, 1, {true, false, false, true}), 0);
}

TEST(SurfacePlot, DescribesItself)
{
    EXPECT_EQ(GridPlot(hill(12)).description(), "12 x 12 grid, no gaps");
    const auto holed = gridOf(4, 3, [](int column, int row) { return column + row == 0 ? missing : 1; });
    EXPECT_EQ(GridPlot(holed).description(), "4 x 3 grid, 1 gap");
}
