#include "engine/plot/surface/SurfaceShape.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr double LowestRelief = 0.17;
constexpr double HighestRelief = 0.34;
constexpr double UsualRelief = 0.25;
// A relief this high is no relief: heights and floor are in different units.
constexpr double Incomparable = 1.5;
constexpr double Narrowest = 0.12;
constexpr int MostBands = 12;

bool isEmpty(const Grid& grid)
{
    return grid.gaps >= grid.values.size();
}

double reliefFor(double trueRelief)
{
    if (!std::isfinite(trueRelief) || trueRelief > Incomparable || trueRelief <= 0)
        return UsualRelief;
    return std::clamp(trueRelief, LowestRelief, HighestRelief);
}

} // namespace

SurfaceShape::SurfaceShape(const Grid& grid)
{
    const double longest = std::max(grid.columns, grid.rows);
    m_halfX = std::max(grid.columns / longest, Narrowest) / 2;
    m_halfY = std::max(grid.rows / longest, Narrowest) / 2;
    m_stepX = 2 * m_halfX / grid.columns;
    m_stepY = 2 * m_halfY / grid.rows;
    const double half = grid.cellSize / 2;
    m_mapX = {grid.xCenter - half, grid.xCenter - half + grid.columns * grid.cellSize};
    m_mapY = {grid.yCenter - half, grid.yCenter - half + grid.rows * grid.cellSize};
    chooseBands(grid);
    chooseHeight(grid);
}

void SurfaceShape::chooseBands(const Grid& grid)
{
    AxisRange range{0, 1};
    if (!isEmpty(grid))
        range = grid.maximum > grid.minimum ? AxisRange{grid.minimum, grid.maximum}
                                            : rangeAround(grid.minimum, grid.maximum, 0);
    const double step = niceStep(range, MostBands);
    const double first = std::floor(range.from / step + 1e-9);
    const double last = std::max(std::ceil(range.to / step - 1e-9), first + 1);
    for (double i = first; i <= last; ++i)
        m_bandEdges.push_back(i * step);
    m_heights = {m_bandEdges.front(), m_bandEdges.back()};
}

void SurfaceShape::chooseHeight(const Grid& grid)
{
    const double difference = isEmpty(grid) ? 0 : double(grid.maximum) - double(grid.minimum);
    const double longest = std::max(grid.columns, grid.rows) * grid.cellSize;
    const double relief = reliefFor(difference / longest);
    const double share = difference > 0 ? difference / m_heights.span() : 1;
    m_halfZ = std::min(relief / share, 2 * HighestRelief) / 2;
}

} // namespace velmora::engine
