#pragma once

#include "engine/plot/surface/SurfaceLevels.h"

#include <vector>

namespace velmora::engine {

/// The heights that the nodes of a part of a level show.
///
/// A node of a coarse level has many heights below it, and can show one. It shows the one in the middle, but
/// where its cells reach above or below all that its neighbours show it is the summit or the bottom: so a
/// spike of one cell is as high at every level. Where both are in the same node, the neighbour to the right
/// shows the lesser one, or the one below, if they have nothing of that kind to show themselves.
class HeightPatch {
public:
    /// The nodes from column, row on.
    HeightPatch(const SurfaceLevels& levels, int level, int column, int row, int columns, int rows);

    /// By the level's columns and rows. NaN for a gap and outside the grid.
    float at(int column, int row) const { return m_heights[index(column, row)]; }
    bool isValue(int column, int row) const;

private:
    void copyGrid(const Grid& grid);
    void choose(const SurfaceLevels& levels, int level);
    std::size_t index(int column, int row) const
    {
        return static_cast<std::size_t>(row - m_row) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column - m_column);
    }

    int m_column;
    int m_row;
    int m_columns;
    int m_rows;
    std::vector<float> m_heights;
};

} // namespace velmora::engine
