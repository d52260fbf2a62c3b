#pragma once

#include "engine/data/Grid.h"
#include "engine/plot/Ticks.h"

#include <glm/vec3.hpp>

#include <algorithm>
#include <optional>
#include <vector>

namespace velmora::engine {

/// What a person chooses of how a surface looks.
struct SurfaceLook {
    double exaggeration = 1;         ///< of the heights, in times of how they are shown by themselves
    std::optional<AxisRange> colors; ///< of the heights that the colours tell apart, instead of all
};

/// The heights that are left when a share of the lowest and the same share of the highest is left out. Of a large grid
/// it looks at a sample: some tens of thousands tell the share to a tenth of a hundredth.
AxisRange middleHeights(const Grid& grid, double leftOut);

/// How a grid is put into a box about the origin: x eastwards, y northwards, z upwards, the longer
/// side of the floor 1.
///
/// Heights are true to scale where that shows the relief. A flat relief is raised and a towering
/// one lowered, so that the heights take about a sixth to a third of the floor's side. Heights over
/// a floor in degrees, which cannot be compared with it, are shown the same way.
class SurfaceShape {
public:
    explicit SurfaceShape(const Grid& grid, const SurfaceLook& look = {});

    double halfX() const { return m_halfX; }
    double halfY() const { return m_halfY; }
    double halfZ() const { return m_halfZ; }
    /// The box's range of heights; its ends are ends of bands, unless the colours have a range of their own.
    const AxisRange& heights() const { return m_heights; }
    /// The borders of the colour bands, from the lowest to the highest; at least two.
    const std::vector<double>& bandEdges() const { return m_bandEdges; }
    /// Whether there are heights below the lowest border, above the highest one.
    bool hasHeightsBelow() const { return m_hasHeightsBelow; }
    bool hasHeightsAbove() const { return m_hasHeightsAbove; }
    const AxisRange& mapX() const { return m_mapX; } ///< of the floor, in map units
    const AxisRange& mapY() const { return m_mapY; }

    double x(double column) const { return (column + 0.5) * m_stepX - m_halfX; }
    double y(double row) const { return m_halfY - (row + 0.5) * m_stepY; }
    double z(double height) const { return (height - m_heights.from) / m_heights.span() * 2 * m_halfZ - m_halfZ; }
    /// 0 at the lowest band's lower border, 1 at the highest band's upper one; beyond for heights that have no band.
    double bandPlace(double height) const
    {
        constexpr double Farthest = 1e6; // as integers can count bands
        const AxisRange bands{m_bandEdges.front(), m_bandEdges.back()};
        return std::clamp((height - bands.from) / bands.span(), -Farthest, Farthest);
    }
    double stepX() const { return m_stepX; } ///< of a column
    double stepY() const { return m_stepY; }

private:
    void chooseBands(const Grid& grid, const SurfaceLook& look);
    void chooseHeight(const Grid& grid, double exaggeration);

    double m_halfX = 0.5;
    double m_halfY = 0.5;
    double m_halfZ = 0.1;
    double m_stepX = 1;
    double m_stepY = 1;
    AxisRange m_heights;
    AxisRange m_mapX;
    AxisRange m_mapY;
    std::vector<double> m_bandEdges;
    bool m_hasHeightsBelow = false;
    bool m_hasHeightsAbove = false;
};

} // namespace velmora::engine
