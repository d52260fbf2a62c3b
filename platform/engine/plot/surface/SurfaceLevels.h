#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/Grid.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

namespace velmora::engine {

/// The smallest and the largest height of a part of a grid. A part of nothing but gaps is upside down,
/// so that joining it to another part changes nothing.
struct HeightRange {
    float low = std::numeric_limits<float>::infinity();
    float high = -std::numeric_limits<float>::infinity();

    bool isGap() const { return !(low <= high); }
    float middle() const { return low / 2 + high / 2; }
    /// NaN changes nothing.
    void take(float height)
    {
        low = height < low ? height : low;
        high = height > high ? height : high;
    }
    void take(const HeightRange& other)
    {
        low = std::min(low, other.low);
        high = std::max(high, other.high);
    }
};

/// A grid at all levels of detail: level 0 is the grid itself, and each node of level n stands for a square
/// of 2^n by 2^n cells, with their smallest and their largest height. All levels together take two thirds of
/// the grid's memory.
class SurfaceLevels {
public:
    /// Asks `checkpoint` to go on; throws ReadInterrupted when it says no.
    SurfaceLevels(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint);

    const Grid& grid() const { return *m_grid; }
    int count() const { return static_cast<int>(m_levels.size()) + 1; }
    int columns(int level) const { return nodes(m_grid->columns, level); }
    int rows(int level) const { return nodes(m_grid->rows, level); }
    /// The coarsest level to be drawn: it has a number of nodes along its longer side, and two wherever the grid
    /// has.
    int coarsest() const;

    /// A gap outside the grid.
    HeightRange range(int level, int column, int row) const;
    /// Where a node stands, in columns or rows of the grid: in the middle of its cells, and at the grid's
    /// border for the outermost ones, so that the surface has the same border at every level.
    double columnPlace(int level, int column) const { return place(m_grid->columns, level, column); }
    double rowPlace(int level, int row) const { return place(m_grid->rows, level, row); }

private:
    static int nodes(int cells, int level) { return ((cells - 1) >> level) + 1; }
    static double place(int cells, int level, int node);
    void addLevel(Checkpoint& checkpoint);
    HeightRange rangeOfGrid(int column, int row) const;

    std::shared_ptr<const Grid> m_grid;
    std::vector<std::vector<HeightRange>> m_levels; ///< from level 1
};

} // namespace velmora::engine
