#include "engine/plot/surface/HeightPatch.h"

#include <array>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr float Gap = std::numeric_limits<float>::quiet_NaN();
// Of all heights: two extremes in one node less apart than this need not both be seen.
constexpr float LeastApart = 0.004F;

enum class Extreme : unsigned char { None, Summit, Bottom, Both };

/// The ranges of a part of a level and of a margin around it, and what each node is among its neighbours.
class Choice {
public:
    Choice(const SurfaceLevels& levels, int level, int column, int row, int columns, int rows)
        : m_column(column - Margin), m_row(row - Margin), m_columns(columns + 2 * Margin), m_rows(rows + 2 * Margin),
          m_leastApart(LeastApart * levels.grid().maximum - LeastApart * levels.grid().minimum)
    {
        readRanges(levels, level);
        findExtremes();
    }

    float shown(int column, int row) const
    {
        const HeightRange& range = m_ranges[index(column, row)];
        if (range.isGap())
            return Gap;
        switch (extreme(column, row)) {
        case Extreme::Summit:
            return range.high;
        case Extreme::Bottom:
            return range.low;
        case Extreme::Both:
            return showsSummit(column, row) ? range.high : range.low;
        case Extreme::None:
            break;
        }
        if (extreme(column - 1, row) == Extreme::Both)
            return lesser(column - 1, row);
        if (extreme(column, row - 1) == Extreme::Both && extreme(column + 1, row - 1) != Extreme::None)
            return lesser(column, row - 1);
        return range.middle();
    }

private:
    static constexpr int Margin = 2;

    std::size_t index(int column, int row) const
    {
        return static_cast<std::size_t>(row - m_row) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column - m_column);
    }
    Extreme extreme(int column, int row) const { return m_extremes[index(column, row)]; }

    void readRanges(const SurfaceLevels& levels, int level)
    {
        m_ranges.reserve(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows));
        for (int row = m_row; row < m_row + m_rows; ++row)
            for (int column = m_column; column < m_column + m_columns; ++column)
                m_ranges.push_back(levels.range(level, column, row));
    }

    void findExtremes()
    {
        m_extremes.assign(m_ranges.size(), Extreme::None);
        for (int row = m_row + 1; row < m_row + m_rows - 1; ++row)
            for (int column = m_column + 1; column < m_column + m_columns - 1; ++column)
                m_extremes[index(column, row)] = extremeOf(index(column, row));
    }

    /// What lies around a node: the lowest and the highest of the middles of its neighbours.
    HeightRange around(std::size_t at) const
    {
        const auto across = static_cast<std::ptrdiff_t>(m_columns);
        const std::array<std::ptrdiff_t, 8> offsets = {-across - 1, -across,    -across + 1, -1,
                                                       1,           across - 1, across,      across + 1};
        HeightRange found;
        for (const std::ptrdiff_t offset : offsets)
            found.take(m_ranges[at + static_cast<std::size_t>(offset)].middle());
        return found;
    }

    Extreme extremeOf(std::size_t at) const
    {
        const HeightRange& own = m_ranges[at];
        const HeightRange others = own.isGap() ? HeightRange{} : around(at);
        if (others.isGap())
            return Extreme::None;
        const float above = own.high - others.high;
        const float below = others.low - own.low;
        if (above > m_leastApart && below > m_leastApart)
            return Extreme::Both;
        if (above > 0 && above >= below)
            return Extreme::Summit;
        return below > 0 ? Extreme::Bottom : Extreme::None;
    }

    /// The larger of two extremes. In a rough ground, where all nodes have two alike, they take turns.
    bool showsSummit(int column, int row) const
    {
        const HeightRange& range = m_ranges[index(column, row)];
        const HeightRange others = around(index(column, row));
        const float above = range.high - others.high;
        const float below = others.low - range.low;
        if (std::fabs(above - below) > (above + below) / 4)
            return above > below;
        return (column + row) % 2 == 0;
    }

    float lesser(int column, int row) const
    {
        const HeightRange& range = m_ranges[index(column, row)];
        return showsSummit(column, row) ? range.low : range.high;
    }

    int m_column;
    int m_row;
    int m_columns;
    int m_rows;
    float m_leastApart;
    std::vector<HeightRange> m_ranges;
    std::vector<Extreme> m_extremes;
};

} // namespace

HeightPatch::HeightPatch(const SurfaceLevels& levels, int level, int column, int row, int columns, int rows)
    : m_column(column), m_row(row), m_columns(columns), m_rows(rows)
{
    m_heights.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    level == 0 ? copyGrid(levels.grid()) : choose(levels, level);
}

void HeightPatch::copyGrid(const Grid& grid)
{
    for (int row = m_row; row < m_row + m_rows; ++row)
        for (int column = m_column; column < m_column + m_columns; ++column) {
            const bool isInside = column >= 0 && row >= 0 && column < grid.columns && row < grid.rows;
            m_heights.push_back(isInside ? grid.at(column, row) : Gap);
        }
}

void HeightPatch::choose(const SurfaceLevels& levels, int level)
{
    const Choice choice(levels, level, m_column, m_row, m_columns, m_rows);
    for (int row = m_row; row < m_row + m_rows; ++row)
        for (int column = m_column; column < m_column + m_columns; ++column)
            m_heights.push_back(choice.shown(column, row));
}

bool HeightPatch::isValue(int column, int row) const
{
    return !std::isnan(at(column, row));
}

} // namespace velmora::engine
