#include "engine/plot/surface/SurfaceShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora::engine {

namespace {

constexpr double LowestRelief = 0.17;
constexpr double HighestRelief = 0.34;
constexpr double UsualRelief = 0.25;
// A relief this high is no relief: heights and floor are in different units.
constexpr double Incomparable = 1.5;
constexpr double Narrowest = 0.12;
constexpr int MostBands = 12;
// Of the floor's longer side: a box that is higher would be seen from too near.
constexpr double HighestBox = 1.4;

// To tell shares of all heights.
constexpr std::size_t EnoughHeights = 32768;
constexpr std::size_t MostCells = 1000000; ///< looked at for them, in a grid of many gaps

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

std::vector<double> bandsOf(const AxisRange& range)
{
    std::vector<double> edges;
    const double step = niceStep(range, MostBands);
    const double first = std::floor(range.from / step + 1e-9);
    const double last = std::max(std::ceil(range.to / step - 1e-9), first + 1);
    for (double i = first; i <= last; ++i)
        edges.push_back(i * step);
    return edges;
}

/// Spread over the whole grid, and not along its columns.
std::vector<float> sampleOf(const Grid& grid)
{
    const std::size_t cells = grid.values.size();
    const std::size_t heights = std::max<std::size_t>(cells - grid.gaps, 1);
    const std::size_t stride = std::max(heights / EnoughHeights, cells / MostCells) + 1;
    std::vector<float> sample;
    std::uint32_t random = 1;
    for (std::size_t first = 0; first + stride <= cells; first += stride) {
        random = random * 1664525U + 1013904223U;
        const float height = grid.values[first + (random >> 8) % stride];
        if (!std::isnan(height))
            sample.push_back(height);
    }
    return sample;
}

} // namespace

AxisRange middleHeights(const Grid& grid, double leftOut)
{
    std::vector<float> sample = sampleOf(grid);
    if (sample.empty())
        return {grid.minimum, grid.maximum};
    const auto at = [&sample](double share) {
        const auto place = sample.begin() + std::lround(share * static_cast<double>(sample.size() - 1));
        std::nth_element(sample.begin(), place, sample.end());
        return static_cast<double>(*place);
    };
    return {at(leftOut), at(1 - leftOut)};
}

SurfaceShape::SurfaceShape(const Grid& grid, const SurfaceLook& look)
{
    const double longest = std::max(grid.columns, grid.rows);
    m_halfX = std::max(grid.columns / longest, Narrowest) / 2;
    m_halfY = std::max(grid.rows / longest, Narrowest) / 2;
    m_stepX = 2 * m_halfX / grid.columns;
    m_stepY = 2 * m_halfY / grid.rows;
    const double half = grid.cellSize / 2;
    m_mapX = {grid.xCenter - half, grid.xCenter - half + grid.columns * grid.cellSize};
    m_mapY = {grid.yCenter - half, grid.yCenter - half + grid.rows * grid.cellSize};
    chooseBands(grid, look);
    chooseHeight(grid, look.exaggeration);
}

void SurfaceShape::chooseBands(const Grid& grid, const SurfaceLook& look)
{
    const auto usable = [](double from, double to) {
        return to > from ? AxisRange{from, to} : rangeAround(from, to, 0);
    };
    m_bandEdges = bandsOf(isEmpty(grid) ? AxisRange{0, 1} : usable(grid.minimum, grid.maximum));
    m_heights = {m_bandEdges.front(), m_bandEdges.back()};
    if (!look.colors || isEmpty(grid))
        return;
    m_bandEdges = bandsOf(usable(look.colors->from, look.colors->to));
    m_hasHeightsBelow = grid.minimum < m_bandEdges.front();
    m_hasHeightsAbove = grid.maximum > m_bandEdges.back();
}

void SurfaceShape::chooseHeight(const Grid& grid, double exaggeration)
{
    const double difference = isEmpty(grid) ? 0 : double(grid.maximum) - double(grid.minimum);
    const double longest = std::max(grid.columns, grid.rows) * grid.cellSize;
    const double relief = reliefFor(difference / longest);
    const double share = difference > 0 ? difference / m_heights.span() : 1;
    m_halfZ = std::min(relief / share, 2 * HighestRelief) / 2 * exaggeration;
    // The proportions stay, and the whole is smaller.
    const double smaller = std::min(1.0, HighestBox / 2 / m_halfZ);
    for (double* const length : {&m_halfX, &m_halfY, &m_halfZ, &m_stepX, &m_stepY})
        *length *= smaller;
}

} // namespace velmora::engine
