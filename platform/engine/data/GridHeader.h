#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::engine {

class TextSource;

/// What stands above the numbers of an ESRI ASCII grid.
struct GridHeader {
    int columns = 0;
    int rows = 0;
    double xCenter = 0; ///< of the lower left cell
    double yCenter = 0;
    double cellSize = 1;
    double noData = -9999; ///< what the format takes when nothing is said
    /// The same as a value of the grid; NaN where it does not fit. Not cast from the double, which may
    /// lie a little beyond the lowest float that it stands for.
    float noDataValue = -9999;
    bool saysNoData = false;

    std::uint64_t cells() const { return static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows); }
};

/// Whether a text begins as an ESRI ASCII grid does: a keyword and a value beside it.
bool looksLikeGrid(std::string_view text);

/// Reads up to the first number of the grid, which is then the source's next word. The sizes are
/// checked by themselves and against what the rest of the file can hold. Throws ReadError.
GridHeader readGridHeader(TextSource& source);

} // namespace velmora::engine
