#pragma once

#include "engine/plot/surface/Contours.h"
#include "engine/plot/surface/SurfaceLevels.h"
#include "engine/plot/surface/SurfaceShape.h"

#include <cstdint>
#include <memory>

namespace velmora::engine {

/// All that the drawings of a grid share, whatever they are seen from and wherever they are drawn.
struct SurfaceData {
    /// Asks `checkpoint` to go on; throws ReadInterrupted when it says no.
    SurfaceData(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint);
    /// The same grid with another look.
    SurfaceData(const SurfaceData& other, const SurfaceLook& look);

    const Grid& grid() const { return levels.grid(); }

    std::uint64_t number; ///< no other data set has had the same
    SurfaceShape shape;
    const std::shared_ptr<const SurfaceLevels> sharedLevels;
    const SurfaceLevels& levels = *sharedLevels;
    KeptContours contours;
};

} // namespace velmora::engine
