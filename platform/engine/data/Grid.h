#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmora::engine {

/// A regular grid of heights as read from an ESRI ASCII grid.
struct Grid {
    std::string name; ///< of the file, without its folder
    int columns = 0;
    int rows = 0;
    double xCenter = 0; ///< of the lower left cell's centre, in map units
    double yCenter = 0;
    double cellSize = 1;
    std::vector<float> values; ///< row by row from the north (top), columns from the west; NaN is a gap
    float minimum = 0;         ///< of the values that are not gaps
    float maximum = 0;
    std::size_t gaps = 0;
    std::vector<std::string> notes;

    float at(int column, int row) const
    {
        return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(column)];
    }
};

} // namespace velmora::engine
