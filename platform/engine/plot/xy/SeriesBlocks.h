#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/plot/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora::engine {

struct Column;

/// The rows of a line in blocks, with the lowest and the highest value of each: so a picture of many rows need
/// not look at all of them, and neither need a search.
class SeriesBlocks {
public:
    static constexpr std::size_t RowsABlock = 256;

    struct Block {
        std::uint8_t lowest = 0; ///< row in the block
        std::uint8_t highest = 0;
        bool isPlain = false; ///< full, without a gap, and the horizontal values never go back
        Rect covered;         ///< by the rows without a gap, in values; upside down when there is none
    };

    /// `x` is null for row numbers. Asks `checkpoint` to go on; throws ReadInterrupted when it says no.
    SeriesBlocks(const Column* x, const Column& y, Checkpoint& checkpoint);

    const Block& blockOf(std::size_t row) const { return m_blocks[row / RowsABlock]; }

private:
    std::vector<Block> m_blocks;
};

} // namespace velmora::engine
