// Which column is the horizontal axis, and what another table's plot keeps of the view.

#include "engine/data/DataReader.h"
#include "engine/plot/Palette.h"
#include "engine/plot/surface/SurfacePlot.h"
#include "engine/plot/xy/XYPlot.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

std::vector<std::string> shownLines(const XYPlot& plot)
{
    std::vector<std::string> names;
    for (const Series& line : plot.lines())
        if (line.isShown)
            names.push_back(line.y->name);
    return names;
}

using Names = std::vector<std::string>;

/// A hundred points all over the plot, in no order.
std::shared_ptr<Table> cloud(std::size_t rows)
{
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t row = 0; row < rows; ++row) {
        x.push_back(static_cast<double>(row * 37 % 101));
        y.push_back(static_cast<double>(row * 53 % 97));
    }
    return tableOf({x, y});
}

std::size_t ink(XYPlot& plot, Detail detail = Detail::Full)
{
    Picture picture(800, 600);
    Drawing drawing = picture.drawing();
    drawing.detail = detail;
    EXPECT_TRUE(plot.draw(drawing, noCheckpoint()));
    picture.refresh();
    const Color color = lineColor(1);
    return picture.countNear(color.red, color.green, color.blue, 3);
}

} // namespace

TEST(Columns, AnotherColumnBecomesTheAxisAndTheFirstOneIsNoLineUntilItIsChosen)
{
    const auto table = tableOf({{3, 5, 9}, {1, 2, 4}});
    XYPlot plot(table, noCheckpoint());
    plot.setXColumn(&table->columns[1], noCheckpoint());
    EXPECT_EQ(plot.xColumn(), &table->columns[1]);
    EXPECT_LT(plot.xRange().from, 3);
    EXPECT_GT(plot.xRange().to, 9);
    EXPECT_EQ(shownLines(plot), Names({"y2"}));
    EXPECT_EQ(plot.lines()[0].y->name, "x");
    plot.showLine(0, true);
    plot.setXColumn(nullptr, noCheckpoint());
    EXPECT_EQ(plot.xColumn(), nullptr);
    EXPECT_EQ(shownLines(plot), Names({"x", "y1", "y2"})) << "the column that was the axis is a line again";
}

TEST(Columns, ThePictureIsNeverEmptyBecauseOfAnotherAxis)
{
    const auto table = tableOf({{3, 5, 9}});
    XYPlot plot(table, noCheckpoint());
    plot.setXColumn(&table->columns[1], noCheckpoint());
    EXPECT_EQ(shownLines(plot), Names({"x"}));
    plot.showAllLines(false);
    plot.setXColumn(nullptr, noCheckpoint());
    EXPECT_EQ(shownLines(plot), Names()) << "a person who hides all lines sees none";
}

TEST(Columns, AColumnKeepsItsColourWhateverTheAxis)
{
    const auto table = tableOf({{3, 5, 9}, {1, 2, 4}});
    const auto reds = [&](const Column* x) {
        std::vector<int> colors;
        for (const Series& line : seriesOf(*table, x, noCheckpoint()))
            colors.push_back(line.color.red);
        return colors;
    };
    const int first = lineColor(0).red;
    const int second = lineColor(1).red;
    EXPECT_EQ(reds(&table->columns[0]), std::vector<int>({first, second}));
    EXPECT_EQ(reds(&table->columns[1]), std::vector<int>({first, second})) << "x takes that of the axis";
    EXPECT_EQ(reds(&table->columns[2]), std::vector<int>({second, first}));
    EXPECT_EQ(reds(nullptr), std::vector<int>({lineColor(2).red, first, second}));
}

TEST(Columns, LinesAreDrawnOverValuesThatRiseOrFallAndPointsOverOthers)
{
    const auto table = tableOf({{3, 5, 5, 9}, {9, 4, missing, 2}, {2, 9, 1, 5}});
    const auto isPoints = [&](std::size_t column) {
        return seriesOf(*table, &table->columns[column], noCheckpoint()).front().isPoints;
    };
    EXPECT_FALSE(isPoints(0));
    EXPECT_FALSE(isPoints(1));
    EXPECT_FALSE(isPoints(2));
    EXPECT_TRUE(isPoints(3));
    EXPECT_FALSE(seriesOf(*table, nullptr, noCheckpoint()).front().isPoints);
}

TEST(Columns, PointsLeaveFreeWhatLinesBetweenThemWouldCover)
{
    const auto table = cloud(100);
    XYPlot plot(table, noCheckpoint());
    const std::size_t lines = ink(plot);
    plot.setXColumn(&table->columns[1], noCheckpoint());
    const std::size_t points = ink(plot);
    EXPECT_GT(points, 400u);
    EXPECT_LT(points, lines / 2);
}

TEST(Columns, ManyPointsAtOnePlaceAreDrawnOnce)
{
    const auto table = cloud(200000); // the same places again and again
    const Series series = seriesOf(*table, &table->columns[1], noCheckpoint()).back();
    const auto pointsDrawn = [&](Detail detail) {
        SeriesPath path(series, {{0, 100}, {0, 100}, {0, 0, 200, 200}}, 1.2, detail);
        SeriesPath::Portion portion;
        std::size_t count = 0;
        while (path.next(portion))
            count += portion.dots.size();
        return count;
    };
    EXPECT_LE(pointsDrawn(Detail::Full), 101u * 97u);
    EXPECT_GT(pointsDrawn(Detail::Full), 9000u);
    EXPECT_LE(pointsDrawn(Detail::Coarse), 1024u);
    EXPECT_GT(pointsDrawn(Detail::Coarse), 900u);
}

TEST(Columns, AnInterruptedChangeOfTheAxisChangesNothing)
{
    const auto table = tableOf({{3, 5, 9}});
    XYPlot plot(table, noCheckpoint());
    CountingCheckpoint stopping;
    stopping.stopAt = 1;
    EXPECT_THROW(plot.setXColumn(&table->columns[1], stopping), ReadInterrupted);
    EXPECT_EQ(plot.xColumn(), &table->columns[0]);
}

TEST(TakenView, ColumnsAreFoundByTheirNamesAndZoomedAxesKeepTheirRange)
{
    const auto before = tableOf({{3, 5, 9}, {1, 2, 4}, {7, 6, 5}});
    XYPlot old(before, noCheckpoint());
    old.setXColumn(&before->columns[1], noCheckpoint());
    old.showLine(1, false); // y2
    old.zoomAxis(2, 0.5, 0.06);
    const AxisRange zoomed = old.xRange();

    const auto after = tableOf({{0, 0, 0, 0}, {30, 50, 90, 95}, {1, 2, 3, 100}});
    after->columns[1].name = "new";
    after->columns[2].name = "y1";
    after->columns[3].name = "y2";
    XYPlot plot(after, noCheckpoint());
    plot.takeViewOf(old, noCheckpoint());
    EXPECT_EQ(plot.xColumn(), &after->columns[2]);
    EXPECT_EQ(plot.xRange().from, zoomed.from);
    EXPECT_EQ(plot.xRange().to, zoomed.to);
    EXPECT_EQ(shownLines(plot), Names({"new"})) << "y2 stays hidden, and x is no line";
    plot.showLine(2, true);
    EXPECT_EQ(plot.lines()[2].y->name, "y2");
}

TEST(TakenView, AnAxisThatShowedAllShowsAllAndAnAxisThatIsGoneIsTheUsualOne)
{
    const auto before = tableOf({{3, 5, 9}, {1, 2, 4}});
    XYPlot old(before, noCheckpoint());
    old.setXColumn(&before->columns[2], noCheckpoint());
    const auto after = tableOf({{3, 5, 900}});
    XYPlot plot(after, noCheckpoint());
    plot.takeViewOf(old, noCheckpoint());
    EXPECT_EQ(plot.xColumn(), &after->columns[0]);
    EXPECT_GT(plot.yRange().to, 900);
}

TEST(TakenView, ASurfaceIsSeenFromWhereTheOtherWas)
{
    GridPlot old(hill(12));
    old.rotate(40, 10);
    old.zoom(2, 0.4, 0.4);
    GridPlot plot(hill(20));
    plot.takeViewOf(old, noCheckpoint());
    EXPECT_EQ(plot.view().aboutVertical, old.view().aboutVertical);
    EXPECT_EQ(plot.view().zoom, old.view().zoom);
    XYPlot lines(tableOf({{1, 2}}), noCheckpoint());
    const AxisRange range = lines.xRange();
    lines.takeViewOf(old, noCheckpoint());
    EXPECT_EQ(lines.xRange().to, range.to) << "nothing to take from another kind";
}
