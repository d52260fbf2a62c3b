#include "engine/plot/xy/SeriesBlocks.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/Table.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr std::size_t blocksAPortion = 256;

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
    for (std::size_t i = 0; i < SeriesBlocks::rowsABlock; ++i) {
        isFinite = isFinite && std::isfinite(values[i]);
        lowest = values[i] < values[lowest] ? i : lowest;
        highest = values[i] > values[highest] ? i : highest;
    }
    block.isPlain = isFinite;
    block.lowest = static_cast<std::uint8_t>(lowest);
    block.highest = static_cast<std::uint8_t>(highest);
    return block;
}

} // namespace

SeriesBlocks::SeriesBlocks(const Column* x, const Column& y, Checkpoint& checkpoint)
{
    const std::size_t rows = x ? std::min(x->values.size(), y.values.size()) : y.values.size();
    m_blocks.reserve(rows / rowsABlock + 1);
    for (std::size_t row = 0; row + rowsABlock <= rows; row += rowsABlock) {
        if (m_blocks.size() % blocksAPortion == 0 && !checkpoint.goOn(1))
            throw ReadInterrupted();
        m_blocks.push_back(blockOfValues(&y.values[row]));
        m_blocks.back().isPlain = m_blocks.back().isPlain && (!x || growsWithoutGap(&x->values[row], rowsABlock));
    }
    m_blocks.push_back({}); // for the rest
}

} // namespace velmora::engine
