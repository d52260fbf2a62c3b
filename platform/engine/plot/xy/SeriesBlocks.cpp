#include "engine/plot/xy/SeriesBlocks.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/Table.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

constexpr std::size_t BlocksAPortion = 256;

bool growsWithoutGap(const double* values, std::size_t count)
{
    bool grows = std::isfinite(values[0]);
    for (std::size_t i = 1; i < count; ++i)
        grows = grows && values[i] >= values[i - 1];
    return grows && std::isfinite(values[count - 1]);
}

SeriesBlocks::Block blockOfValues(const double* values)
{
    SeriesBlocks::Block block;
    std::size_t lowest = 0;
    std::size_t highest = 0;
    bool isFinite = true;
    for (std::size_t i = 0; i < SeriesBlocks::RowsABlock; ++i) {
        isFinite = isFinite && std::isfinite(values[i]);
        lowest = values[i] < values[lowest] ? i : lowest;
        highest = values[i] > values[highest] ? i : highest;
    }
    block.isPlain = isFinite;
    block.lowest = static_cast<std::uint8_t>(lowest);
    block.highest = static_cast<std::uint8_t>(highest);
    return block;
}

Rect coveredBy(const double* x, const double* y, std::size_t firstRow, std::size_t count)
{
    constexpr double Most = std::numeric_limits<double>::infinity();
    Rect covered{Most, Most, -Most, -Most};
    for (std::size_t i = 0; i < count; ++i) {
        const Point point{x ? x[i] : static_cast<double>(firstRow + i) + 1, y[i]};
        if (std::isfinite(point.x) && std::isfinite(point.y))
            covered.take(point);
    }
    return covered;
}

} // namespace

SeriesBlocks::SeriesBlocks(const Column* x, const Column& y, Checkpoint& checkpoint)
{
    const std::size_t rows = x ? std::min(x->values.size(), y.values.size()) : y.values.size();
    m_blocks.reserve(rows / RowsABlock + 1);
    for (std::size_t row = 0; row < rows; row += RowsABlock) {
        if (m_blocks.size() % BlocksAPortion == 0 && !checkpoint.goOn(1))
            throw ReadInterrupted();
        const std::size_t count = std::min(RowsABlock, rows - row);
        const double* const across = x ? &x->values[row] : nullptr;
        m_blocks.push_back(count == RowsABlock ? blockOfValues(&y.values[row]) : Block());
        m_blocks.back().isPlain = m_blocks.back().isPlain && (!x || growsWithoutGap(across, RowsABlock));
        m_blocks.back().covered = coveredBy(across, &y.values[row], row, count);
    }
}

} // namespace velmora::engine
