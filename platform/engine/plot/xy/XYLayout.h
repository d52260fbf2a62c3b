#pragma once

#include "engine/plot/PlotTexts.h"
#include "engine/plot/xy/SeriesPath.h"

#include <string>
#include <vector>

namespace velmora::engine {

/// The numbers of the objects of a plot of lines.
namespace xyobject {

constexpr int Title = 0, XTitle = 1, YTitle = 2, LegendText = 100; ///< texts; legendText + line
constexpr int XAxis = 0, YAxis = 1, Legend = 2;                    ///< geometries

} // namespace xyobject

constexpr std::size_t LongestName = 40; ///< of a line or an axis, in characters

/// What a plot of lines shows, for as long as one drawing of it lasts.
struct XYContent {
    std::shared_ptr<const Table> table;
    std::vector<Series> series;
    AxisMap map; ///< `plot` is set by the layout
};

/// An entry of the legend: a piece of the line, and with its name the place of both.
struct LegendSample {
    Point from;
    Point to;
    Rect entry;
    std::size_t line;
};

/// Where everything stands, in frame pixels.
struct XYLayout {
    AxisMap map;
    std::vector<Tick> xTicks;
    std::vector<Tick> yTicks;
    std::vector<TextItem> tickLabels;
    std::vector<PlotText> texts;
    std::vector<LegendSample> samples;
    Rect legend; ///< empty without one
    Rect xAxis;  ///< axis line, ticks and labels
    Rect yAxis;
};

XYLayout layOut(const XYContent& content, const FrameSize& frame);

} // namespace velmora::engine
