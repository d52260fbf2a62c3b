#pragma once

#include "engine/plot/surface/Camera.h"
#include "engine/plot/surface/SurfaceLevels.h"

namespace velmora::engine {

/// A cell of a grid, and where its middle is in the picture.
struct CellAtPlace {
    int column = 0;
    int row = 0;
    Point at;
};

/// Finds the cell that a picture of a surface shows at a place: of what lies one behind the other there, the nearest.
/// It goes down the levels of detail and looks only at what may lie there. False where no surface shows.
bool findCellAt(const SurfaceLevels& levels, const SurfaceShape& shape, const Camera& camera, Point place,
                CellAtPlace& found);

} // namespace velmora::engine
