#include "engine/plot/surface/SurfaceLevels.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"

namespace velmora::engine {

namespace {

// What is worked off in a portion takes about a tenth of a millisecond.
constexpr int CellsAPortion = 65536;
// With fewer a shape is not to be recognised.
constexpr int LeastNodes = 12;

std::size_t index(int columns, int column, int row)
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
}

void takeHeights(const float* heights, int columns, HeightRange* ranges)
{
    for (int column = 0; column < columns; ++column)
        ranges[column / 2].take(heights[column]);
}

void takeRanges(const HeightRange* finer, int columns, HeightRange* ranges)
{
    for (int column = 0; column < columns; ++column)
        ranges[column / 2].take(finer[column]);
}

} // namespace

SurfaceLevels::SurfaceLevels(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint) : m_grid(std::move(grid))
{
    while (columns(count() - 1) > 1 || rows(count() - 1) > 1)
        addLevel(checkpoint);
}

void SurfaceLevels::addLevel(Checkpoint& checkpoint)
{
    const int finer = count() - 1;
    const int finerColumns = columns(finer);
    const int finerRows = rows(finer);
    const auto across = static_cast<std::size_t>(columns(finer + 1));
    std::vector<HeightRange> made;
    made.reserve(across * static_cast<std::size_t>(rows(finer + 1)));
    const int rowsAPortion = std::max(1, CellsAPortion / finerColumns);
    for (int row = 0; row < finerRows; ++row) {
        if (row % rowsAPortion == 0 && !checkpoint.goOn(1))
            throw ReadInterrupted();
        if (row % 2 == 0)
            made.resize(made.size() + across);
        HeightRange* const target = &*(made.end() - static_cast<std::ptrdiff_t>(across));
        if (finer == 0)
            takeHeights(&m_grid->values[index(finerColumns, 0, row)], finerColumns, target);
        else
            takeRanges(&m_levels.back()[index(finerColumns, 0, row)], finerColumns, target);
    }
    m_levels.push_back(std::move(made));
}

int SurfaceLevels::coarsest() const
{
    const auto isFineEnough = [this](int level) {
        return std::max(columns(level), rows(level)) >= LeastNodes && (columns(level) > 1 || m_grid->columns == 1) &&
               (rows(level) > 1 || m_grid->rows == 1);
    };
    int level = 0;
    while (level + 1 < count() && isFineEnough(level + 1))
        ++level;
    return level;
}

HeightRange SurfaceLevels::rangeOfGrid(int column, int row) const
{
    HeightRange range;
    range.take(m_grid->at(column, row));
    return range;
}

HeightRange SurfaceLevels::range(int level, int column, int row) const
{
    if (column < 0 || row < 0 || column >= columns(level) || row >= rows(level))
        return {};
    if (level == 0)
        return rangeOfGrid(column, row);
    return m_levels[static_cast<std::size_t>(level) - 1][index(columns(level), column, row)];
}

double SurfaceLevels::place(int cells, int level, int node)
{
    if (level == 0 || node <= 0)
        return node;
    if (node >= nodes(cells, level) - 1)
        return cells - 1 + (node - (nodes(cells, level) - 1)) * static_cast<double>(1 << level);
    return node * static_cast<double>(1 << level) + ((1 << level) - 1) / 2.0;
}

} // namespace velmora::engine
