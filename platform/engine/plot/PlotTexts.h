#pragma once

#include "engine/plot/Canvas.h"
#include "engine/plot/SelectablePlot.h"

#include <string>
#include <vector>

namespace velmora::engine {

/// Sizes that all plots have in common, in points.
namespace plotsize {

constexpr double Title = 13, AxisTitle = 10, Label = 9; ///< heights of texts
constexpr double Edge = 14;                             ///< free room along the edges of the frame
constexpr double Gap = 5;
constexpr double Tick = 4;

} // namespace plotsize

/// A text of a plot that can be selected.
struct PlotText {
    TextItem item;
    int object; ///< of kind text
};

/// The plot's name in the middle of the frame, its top at `top`; cut at its end where it is wider.
TextItem plotTitle(const std::string& name, const FrameSize& frame, double top);

/// Paints a text of a plot, on a ground that tells whether it is selected.
void paintPlotText(Canvas& canvas, const FrameSize& frame, const TextItem& text, bool selected);

/// Adds the texts that the rectangle meets.
void collectTexts(const std::vector<PlotText>& texts, const Rect& rect, Selection& found);

} // namespace velmora::engine
