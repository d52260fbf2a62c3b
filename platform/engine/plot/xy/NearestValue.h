#pragma once

#include "engine/plot/xy/SeriesPath.h"

#include <cstddef>
#include <vector>

namespace velmora::engine {

/// A value of a line, and where it stands in the picture.
struct NearestValue {
    std::size_t line = 0;
    std::size_t row = 0;
    Point at;
};

/// Finds the value that stands nearest to a place in the picture, and not farther away than `reach` pixels. Values
/// less than half a pixel away are equally near: the search ends with the first of them. So it looks at few rows
/// of a large table. False when there is none.
bool findNearestValue(const std::vector<Series>& series, const AxisMap& map, Point place, double reach,
                      NearestValue& found);

} // namespace velmora::engine
