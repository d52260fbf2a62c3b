#pragma once

#include "engine/gl/KeptGeometry.h"
#include "engine/plot/surface/CoarseBudget.h"

namespace velmora::engine {

/// What the drawings of a surface leave for the next.
struct SurfaceMemory {
    unsigned long context = 0; ///< that the geometry is in, of which a page has at most one
    KeptGeometry geometry;
    CoarseBudget coarseBudget;

    /// Null for a context in which nothing is kept.
    KeptGeometry* geometryOf(unsigned long number);
    void leaveContext(unsigned long number, bool isCurrent);
};

} // namespace velmora::engine
