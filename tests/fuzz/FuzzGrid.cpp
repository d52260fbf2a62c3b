#include "tests/fuzz/ReadSupport.h"

#include <cmath>
#include <cstdint>
#include <string>

using namespace velmora::engine;

namespace {

/// The sizes come from the first two bytes, so that few inputs are lost to sizes that do not match.
std::string withHeader(std::string_view bytes)
{
    const int columns = bytes[0] & 7;
    const int rows = bytes[1] & 7;
    return "ncols " + std::to_string(columns) + "\nnrows " + std::to_string(rows) +
           "\nxllcorner 0\nyllcorner 0\ncellsize 1\n" + std::string(bytes.substr(2));
}

void check(const Grid& grid)
{
    fuzz::require(grid.columns > 0 && grid.rows > 0 && grid.cellSize > 0, "the grid has a size");
    fuzz::require(grid.values.size() == static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(grid.rows),
                  "every cell has its value");
    std::size_t gaps = 0;
    for (const float value : grid.values) {
        fuzz::require(std::isnan(value) || (value >= grid.minimum && value <= grid.maximum), "the range is right");
        gaps += std::isnan(value) ? 1 : 0;
    }
    fuzz::require(gaps == grid.gaps && gaps < grid.values.size(), "the gaps are counted");
    fuzz::require(std::isfinite(grid.minimum) && std::isfinite(grid.maximum), "the range is finite");
}

void readAndCheck(std::string_view text)
{
    const auto data = fuzz::read(text);
    if (data && std::holds_alternative<std::shared_ptr<const Grid>>(*data))
        check(*std::get<std::shared_ptr<const Grid>>(*data));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text(bytes, bytes + size);
    readAndCheck(text);
    readAndCheck("ncols " + text);
    if (size > 2)
        readAndCheck(withHeader(text));
    return 0;
}
