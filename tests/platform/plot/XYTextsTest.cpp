// The texts of a plot of lines: legible, whole where there is room, and rows in whole numbers.

#include "engine/plot/xy/XYLayout.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

TextItem itemOf(const XYLayout& layout, int object)
{
    for (const PlotText& text : layout.texts)
        if (text.object == object)
            return text.item;
    return {};
}

XYLayout layoutOf(const std::shared_ptr<const Table>& table, const AxisRange& x, const FrameSize& frame)
{
    const XYContent content{table, seriesOf(*table, noCheckpoint()), {x, {0, 10}, {}}};
    return layOut(content, frame);
}

} // namespace

TEST(XYTexts, RowsAreCountedInWholeNumbers)
{
    auto table = tableOf({{7, 9, 8}});
    table->columns[0].countsRows = true;
    for (const double to : {3.02, 2.2, 1.4, 40.0}) {
        const XYLayout layout = layoutOf(table, {0.98, to}, {640, 480, 1});
        EXPECT_FALSE(layout.xTicks.empty()) << to;
        for (const Tick& tick : layout.xTicks)
            EXPECT_EQ(tick.value, std::floor(tick.value)) << to;
    }
}

TEST(XYTexts, ATitleIsShownWholeWhereThereIsRoomAndElseCutAtItsEnd)
{
    auto table = tableOf({{7, 9, 8}});
    const std::string longName = "temperature of the water at the surface near the buoy of the station";
    table->name = longName;
    for (Column& column : table->columns)
        column.name = longName;
    for (const double side : {1000.0, 200.0}) {
        const FrameSize frame{side, side, 1, 9};
        const XYLayout layout = layoutOf(table, {0, 2}, frame);
        for (const int object : {xyobject::Title, xyobject::XTitle, xyobject::YTitle}) {
            const std::string text = itemOf(layout, object).text;
            const Rect rect = textRect(itemOf(layout, object));
            EXPECT_TRUE(frame.rect().contains({rect.x1, rect.y1})) << object;
            EXPECT_TRUE(frame.rect().contains({rect.x2, rect.y2})) << object;
            if (side == 1000)
                EXPECT_EQ(text, longName) << object;
            else
                EXPECT_EQ(text.substr(0, 15) + text.substr(text.size() - 3), longName.substr(0, 15) + "…") << object;
        }
    }
}

TEST(XYTexts, TextsStayLegibleInASmallFrameAndThePlotStaysLargest)
{
    auto table = tableOf({{7, 9, 8}, {1, 2, 3}});
    for (const double scale : {1.0, 2.0, 4.0}) { // as it is drawn to be averaged
        const FrameSize frame{320 * scale, 240 * scale, 0.3 * scale, 9 * scale};
        const XYLayout layout = layoutOf(table, {0, 2}, frame);
        for (const TextItem& label : layout.tickLabels)
            EXPECT_GE(label.size, 9 * scale) << label.text;
        for (const PlotText& text : layout.texts)
            EXPECT_GE(text.item.size, 9 * scale) << text.item.text;
        EXPECT_GT(layout.map.plot.height(), frame.height * 0.6);
        EXPECT_GT(layout.map.plot.width(), frame.width * 0.7);
        for (const TextItem& label : layout.tickLabels)
            EXPECT_FALSE(textRect(label).meets(textRect(itemOf(layout, xyobject::XTitle)))) << label.text;
    }
}

TEST(XYTexts, InATinyFrameTextsGiveWayToThePlot)
{
    auto table = tableOf({{7, 9, 8}});
    EXPECT_GT(layoutOf(table, {0, 2}, {60, 40, 0.06, 9}).map.plot.height(), 15);
}
