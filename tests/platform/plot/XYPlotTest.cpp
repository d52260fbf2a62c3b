#include "engine/plot/xy/XYPlot.h"
#include "engine/gl/GLFunctions.h"
#include "engine/plot/Palette.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr int Width = 640;
constexpr int Height = 480;

XYLayout layoutOf(const XYPlot& plot, const std::shared_ptr<const Table>& table)
{
    const XYContent content{table, seriesOf(*table, noCheckpoint()), {plot.xRange(), plot.yRange(), {}}};
    return layOut(content, {Width, Height, 1});
}

/// How much of the pixel a line of this colour covers on white ground, when it is such a pixel.
double coverage(Picture::Pixel pixel, Color color)
{
    const double covered =
        (765.0 - pixel.red - pixel.green - pixel.blue) / (765.0 - color.red - color.green - color.blue);
    const auto blended = [covered](int channel) { return static_cast<int>(255 - covered * (255 - channel)); };
    const bool isBlend = pixel.isNear(blended(color.red), blended(color.green), blended(color.blue), 24);
    return isBlend ? covered : 0;
}

/// The picture has the colour of a line next to where the value is drawn.
bool showsLineAt(const Picture& picture, const XYLayout& layout, Point value, std::size_t line)
{
    const Point at = layout.map(value);
    double most = 0;
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            most = std::max(
                most, coverage(picture.at(static_cast<int>(at.x) + dx, static_cast<int>(at.y) + dy), lineColor(line)));
    return most > 0.45;
}

/// The same for a line that may have a gap between two dashes there.
bool showsLineNear(const Picture& picture, const XYLayout& layout, Point value, std::size_t line)
{
    for (double x = value.x - 0.1; x < value.x + 0.1; x += 0.005)
        if (showsLineAt(picture, layout, {x, value.y}, line))
            return true;
    return false;
}

std::size_t countColor(const Picture& picture, Color color)
{
    return picture.countNear(color.red, color.green, color.blue, 3);
}

int pickAt(XYPlot& plot, Point pixel, const PickFilter& filter = {})
{
    return plot.pick((pixel.x - 3) / Width, (pixel.y - 3) / Height, (pixel.x + 3) / Width, (pixel.y + 3) / Height,
                     filter);
}

Point middleOf(const Rect& rect)
{
    return {(rect.x1 + rect.x2) / 2, (rect.y1 + rect.y2) / 2};
}

Rect rectOfText(const XYLayout& layout, int object)
{
    for (const PlotText& text : layout.texts)
        if (text.object == object)
            return textRect(text.item);
    return {};
}

} // namespace

TEST(XYPlot, LinesLieWhereTheirValuesAre)
{
    const auto table = tableOf({{0, 10, 5, 8}, {9, 3, 3, 1}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_TRUE(showsLineAt(picture, layout, {0.5, 5}, 0));
    EXPECT_TRUE(showsLineAt(picture, layout, {2.5, 6.5}, 0));
    EXPECT_TRUE(showsLineAt(picture, layout, {1.5, 3}, 1));
    EXPECT_FALSE(showsLineAt(picture, layout, {1.5, 9.5}, 0));
    EXPECT_EQ(currentGL().GetError(), GLenum(GL_NO_ERROR));
}

TEST(XYPlot, AGapBreaksTheLine)
{
    const auto table = tableOf({{5, 5, missing, 5, 5}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_TRUE(showsLineAt(picture, layout, {0.6, 5}, 0));
    EXPECT_FALSE(showsLineAt(picture, layout, {1.4, 5}, 0));
    EXPECT_FALSE(showsLineAt(picture, layout, {2.0, 5}, 0));
    EXPECT_TRUE(showsLineAt(picture, layout, {3.4, 5}, 0));
}

TEST(XYPlot, LinesEndAtTheAxes)
{
    const auto table = tableOf({{0, 10, 0, 10, 0}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    plot.zoom(4, 0.5, 0.5);
    picture.clear();
    ASSERT_TRUE(picture.draw(plot));
    const Rect frame = layoutOf(plot, table).map.plot;
    const Color color = lineColor(0);
    std::size_t inside = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            if (picture.at(x, y).isNear(color.red, color.green, color.blue, 10)) {
                const bool within = frame.contains({x + 0.5, y + 0.5});
                EXPECT_TRUE(within) << x << ' ' << y;
                inside += within ? 1 : 0;
            }
    EXPECT_GT(inside, 100u);
}

TEST(XYPlot, SteepPeaksReachTheirValue)
{
    const auto table = tableOf({{0, 0, 10, 0, 0}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    EXPECT_TRUE(showsLineAt(picture, layoutOf(plot, table), {2, 10}, 0));
}

TEST(XYPlot, ManyColumnsAllShowAndTheLegendNamesWhatItHasRoomFor)
{
    std::vector<std::vector<double>> columns;
    for (int i = 0; i < 60; ++i)
        columns.push_back({i * 1.0, i * 1.0});
    const auto table = tableOf(columns);
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    for (std::size_t line = 0; line < 60; ++line)
        EXPECT_TRUE(showsLineNear(picture, layout, {0.5, line * 1.0}, line)) << line;
    EXPECT_GT(layout.map.plot.height(), Height / 2);
    EXPECT_LT(layout.samples.size(), 60u);
    const TextItem& last = layout.texts[layout.texts.size() - 3].item;
    EXPECT_EQ(last.text, "… " + std::to_string(60 - layout.samples.size()) + " more");
}

TEST(XYPlot, ADateColumnGivesDates)
{
    auto table = tableOf({{1, 2}});
    table->columns[0].isDate = true;
    table->columns[0].values = {11323, 13149}; // 2001-01-01 and 2006-01-01
    const XYPlot plot(table, noCheckpoint());
    const XYLayout layout = layoutOf(plot, table);
    ASSERT_GE(layout.xTicks.size(), 3u);
    EXPECT_EQ(layout.xTicks[0].label.substr(0, 4), "2001");
}

TEST(XYPlot, TheLargestNumbersShow)
{
    const auto table = tableOf({{-1e308, 1e308, 5e307}});
    XYPlot plot(table, noCheckpoint());
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_GE(layout.yTicks.size(), 3u);
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const Column& axis = table->columns[0];
    EXPECT_TRUE(showsLineAt(picture, layout, {axis.values[0], -1e308}, 0));
    EXPECT_TRUE(showsLineAt(picture, layout, {axis.values[2], 5e307}, 0));
    plot.zoom(2, 0.5, 0.5);
    EXPECT_NEAR(plot.yRange().to / 1e308, 0.55, 0.1);
    plot.translate(0, 0.2);
    EXPECT_LT(plot.yRange().to, 0.5e308);
}

TEST(XYPlot, TheUnitStandsBehindTheNameOfAnAxis)
{
    const auto table = tableOf({{1, 2}});
    table->columns[0].unit = "s";
    table->columns[1].name = "speed";
    table->columns[1].unit = "m/s";
    const XYPlot plot(table, noCheckpoint());
    std::vector<std::string> texts;
    for (const PlotText& text : layoutOf(plot, table).texts)
        texts.push_back(text.item.text);
    EXPECT_NE(std::find(texts.begin(), texts.end(), "speed (m/s)"), texts.end());
    EXPECT_NE(std::find(texts.begin(), texts.end(), table->columns[0].name + " (s)"), texts.end());
}

TEST(XYPlot, LabelsDoNotLieUponEachOther)
{
    for (double offset : {0.0, 12345678.0, -1e-7, 1e30}) {
        auto table = tableOf({{offset, offset + 1, 2 * offset + 3}});
        for (double& x : table->columns[0].values)
            x = x * 1e5 + offset;
        const XYPlot plot(table, noCheckpoint());
        const XYLayout layout = layoutOf(plot, table);
        for (std::size_t i = 0; i < layout.tickLabels.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(textRect(layout.tickLabels[i]).meets(textRect(layout.tickLabels[j])))
                    << layout.tickLabels[i].text << " " << layout.tickLabels[j].text;
    }
}

TEST(XYPlot, FitRestoresWhatZoomAndTranslateChanged)
{
    XYPlot plot(tableOf({{0, 10, 5}}), noCheckpoint());
    const AxisRange x = plot.xRange();
    const AxisRange y = plot.yRange();
    plot.zoom(3, 0.3, 0.6);
    plot.translate(0.2, -0.1);
    EXPECT_NE(plot.xRange().from, x.from);
    EXPECT_NEAR(plot.xRange().span(), x.span() / 3, 1e-9);
    plot.fit();
    EXPECT_EQ(plot.xRange().from, x.from);
    EXPECT_EQ(plot.yRange().to, y.to);
}

TEST(XYPlot, ZoomKeepsTheValueUnderThePoint)
{
    const auto table = tableOf({{0, 10, 5}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    const Point value{1.2, 7};
    const Point before = layoutOf(plot, table).map(value);
    plot.zoom(2, before.x / Width, before.y / Height);
    const Point after = layoutOf(plot, table).map(value);
    EXPECT_NEAR(after.x, before.x, 8) << "the labels' width may change the plot's a little";
    EXPECT_NEAR(after.y, before.y, 1);
}

TEST(XYPlot, TranslateMovesThePictureByFractionsOfTheFrame)
{
    const auto table = tableOf({{0, 10, 5}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    const Point before = layoutOf(plot, table).map({1, 5});
    plot.translate(0.1, 0.05);
    const Point after = layoutOf(plot, table).map({1, 5});
    EXPECT_NEAR(after.x - before.x, 0.1 * Width, 8);
    EXPECT_NEAR(after.y - before.y, 0.05 * Height, 1);
}

TEST(XYPlot, EndlessZoomingStaysDrawable)
{
    XYPlot plot(tableOf({{1e6, 1e6 + 10, 1e6 + 5}}), noCheckpoint());
    Picture picture(Width, Height);
    for (double factor : {7.0, 1 / 7.0}) {
        for (int i = 0; i < 200; ++i)
            plot.zoom(factor, 0.4, 0.4);
        plot.translate(3, -2);
        EXPECT_GT(plot.xRange().span(), 0);
        EXPECT_TRUE(picture.draw(plot));
        EXPECT_EQ(currentGL().GetError(), GLenum(GL_NO_ERROR));
        plot.fit();
    }
}

TEST(XYPlot, PicksALineWhereItIsAndNowhereElse)
{
    const auto table = tableOf({{0, 10, 0}, {8, 8, 8}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_EQ(pickAt(plot, layout.map({1, 3})), 0);
    EXPECT_EQ(pickAt(plot, layout.map({0.5, 5})), 1);
    EXPECT_EQ(plot.selectedCount(), 1);
    EXPECT_EQ(pickAt(plot, layout.map({0.5, 5})), 1) << "again";
    EXPECT_EQ(plot.selectedCount(), 1) << "and selected once";
    EXPECT_EQ(pickAt(plot, layout.map({0.8, 8})), 2) << "where both cross";
    EXPECT_EQ(plot.selectedCount(), 2);
    plot.deselectAll();
    EXPECT_EQ(plot.selectedCount(), 0);
}

TEST(XYPlot, PicksTextsAndGeometriesByKind)
{
    const auto table = tableOf({{0, 10, 0}, {8, 8, 8}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    const XYLayout layout = layoutOf(plot, table);
    const Point title = middleOf(rectOfText(layout, xyobject::Title));
    EXPECT_EQ(pickAt(plot, title, {true, true, false, true}), 0);
    EXPECT_EQ(pickAt(plot, title, {false, false, true, true}), 1);
    EXPECT_EQ(pickAt(plot, middleOf(rectOfText(layout, xyobject::YTitle)), {false, false, true, true}), 1);
    EXPECT_EQ(pickAt(plot, middleOf(layout.xAxis), {false, true, false, true}), 1);
    EXPECT_EQ(pickAt(plot, middleOf(layout.legend), {false, true, false, true}), 1);
    EXPECT_EQ(plot.selectedCount(), 4);
    EXPECT_EQ(plot.pick(0, 0, 1, 1, {false, false, false, true}), 0);
    EXPECT_EQ(plot.pick(0, 0, 1, 1, {true, true, true, true}), 2 + 3 + 5);
}

TEST(XYPlot, WhatTheAxesCutOffIsPickedOnlyWhenStyleDoesNotCount)
{
    const auto table = tableOf({{0, 0, 0}, {9, 9, 9}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    plot.translate(0, -0.6);
    const Point below = layoutOf(plot, table).map({1, 0});
    EXPECT_EQ(pickAt(plot, below, {true, false, false, true}), 0);
    EXPECT_EQ(pickAt(plot, below, {true, false, false, false}), 1);
}

TEST(XYPlot, SelectedThingsAreSeen)
{
    const auto table = tableOf({{0, 10, 0}, {8, 8, 8}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    picture.draw(plot);
    EXPECT_EQ(countColor(picture, palette::Selected), 0u);
    const XYLayout layout = layoutOf(plot, table);
    std::size_t last = 0;
    for (const Point& place :
         {layout.map({0.5, 5}), middleOf(layout.xAxis), middleOf(layout.yAxis), middleOf(layout.legend)}) {
        ASSERT_GE(pickAt(plot, place, {true, true, false, true}), 1);
        picture.clear();
        picture.draw(plot);
        EXPECT_GT(countColor(picture, palette::Selected), last + 20);
        last = countColor(picture, palette::Selected);
    }
    ASSERT_EQ(pickAt(plot, middleOf(rectOfText(layout, xyobject::Title)), {false, false, true, true}), 1);
    picture.clear();
    picture.draw(plot);
    EXPECT_GT(countColor(picture, palette::SelectedGround), 100u);
}

TEST(XYPlot, OneRowIsADot)
{
    const auto table = tableOf({{5}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    EXPECT_TRUE(showsLineAt(picture, layoutOf(plot, table), {0, 5}, 0));
}

TEST(XYPlot, OneColumnIsALineOverTheRowNumbers)
{
    auto table = tableOf({{1}});
    table->columns = {{"height", false, {3, 1, 2}}};
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_TRUE(showsLineAt(picture, layout, {1.5, 2}, 0));
    EXPECT_EQ(plot.description(), "1 line, 3 rows");
}

TEST(XYPlot, AConstantLineLiesInTheMiddle)
{
    const auto table = tableOf({{-7, -7, -7}});
    XYPlot plot(table, noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    const XYLayout layout = layoutOf(plot, table);
    EXPECT_TRUE(showsLineAt(picture, layout, {1, -7}, 0));
    EXPECT_NEAR(layout.map({1, -7}).y, middleOf(layout.map.plot).y, 1);
}

TEST(XYPlot, NothingButGapsStillHasAxes)
{
    XYPlot plot(tableOf({{missing, missing}}), noCheckpoint());
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(plot));
    EXPECT_GT(countColor(picture, palette::Axis), 500u);
    auto empty = std::make_shared<Table>();
    XYPlot nothing(empty, noCheckpoint());
    picture.clear();
    EXPECT_TRUE(picture.draw(nothing));
    EXPECT_GT(countColor(picture, palette::Axis), 500u);
}

TEST(XYPlot, DescribesItself)
{
    EXPECT_EQ(XYPlot(tableOf({{1, 2}, {1, 2}}), noCheckpoint()).description(), "2 lines, 2 rows");
}
