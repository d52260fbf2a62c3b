#pragma once

#include "engine/plot/surface/SurfaceMesh.h"

#include <cstddef>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace velmora::engine {

/// A line of equal height on the surface; closed where its last point is its first.
using ContourLine = std::vector<glm::dvec3>;
using ContourLines = std::vector<ContourLine>;

/// The lines at the band borders between the lowest and the highest one on a piece of the surface. What does
/// not bend by more than `tolerance` has no points in between.
ContourLines contoursOf(const MeshPart& part, const SurfaceShape& shape, double tolerance);

/// The lines of equal height of the pieces that were drawn last, in main memory: they serve every context.
class KeptContours {
public:
    using Key = std::pair<int, int>; ///< level of detail, piece

    /// Null when they are not kept.
    std::shared_ptr<const ContourLines> find(const Key& key) const;
    std::shared_ptr<const ContourLines> add(const Key& key, ContourLines lines);

private:
    std::map<Key, std::shared_ptr<const ContourLines>> m_lines;
    std::size_t m_bytes = 0;
};

} // namespace velmora::engine
