#pragma once

#include "engine/plot/Canvas.h"
#include "engine/plot/surface/SurfaceData.h"

#include <vector>

namespace velmora::engine {

/// A piece of a level of detail that lies in the picture.
struct VisiblePiece {
    int column = 0;
    int row = 0;
    Rect where;          ///< frame pixels
    double nearness = 0; ///< of its middle to the viewer
};

/// Which level of detail of a surface a drawing shows, and the pieces of it that are in the picture, the
/// nearest first: so that what they hide need not be painted.
struct VisiblePieces {
    int level = 0;
    std::vector<VisiblePiece> pieces;
};

/// The level for a whole picture; for a coarse one the finest level above it that has no more than
/// `mostTriangles` to draw.
VisiblePieces chooseVisiblePieces(const SurfaceData& data, const Camera& camera, const Canvas& canvas,
                                  std::size_t mostTriangles);

/// The finest level whose meshes are a little more than a pixel wide.
int fullLevel(const SurfaceData& data, const Camera& camera);

/// The rectangle of the picture that points of the box cover.
Rect coveredBy(const std::vector<glm::dvec3>& corners, const Camera& camera);

} // namespace velmora::engine
