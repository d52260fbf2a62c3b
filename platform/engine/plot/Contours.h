#pragma once

#include "engine/plot/SurfaceMesh.h"

#include <utility>
#include <vector>

namespace velmora::engine {

/// A piece of a line of equal height on the surface.
using ContourSegment = std::pair<Vector3, Vector3>;

/// Adds the lines at the band borders between the lowest and the highest one on a piece of the
/// surface.
void addContours(const MeshPart& part, const SurfaceShape& shape, std::vector<ContourSegment>& segments);

} // namespace velmora::engine
