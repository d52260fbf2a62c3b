#include "engine/plot/Contours.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

Vector3 crossing(const MeshVertex& a, const MeshVertex& b, double level)
{
    const double t = (level - a.band) / (double(b.band) - a.band);
    return {a.position[0] + t * (double(b.position[0]) - a.position[0]),
            a.position[1] + t * (double(b.position[1]) - a.position[1]),
            a.position[2] + t * (double(b.position[2]) - a.position[2])};
}

// A corner at the level counts as above it: so a line crosses exactly two sides or none.
void addSegment(const MeshVertex* const (&corners)[3], double level, std::vector<ContourSegment>& segments)
{
    Vector3 ends[2];
    int count = 0;
    for (int i = 0; i < 3; ++i) {
        const MeshVertex& a = *corners[i];
        const MeshVertex& b = *corners[(i + 1) % 3];
        if ((a.band >= level) != (b.band >= level) && count < 2)
            ends[count++] = crossing(a, b, level);
    }
    if (count == 2)
        segments.push_back({ends[0], ends[1]});
}

} // namespace

void addContours(const MeshPart& part, const SurfaceShape& shape, std::vector<ContourSegment>& segments)
{
    const int bands = static_cast<int>(shape.bandEdges().size()) - 1;
    for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3) {
        const MeshVertex* const corners[3] = {&part.vertices[part.indices[i]], &part.vertices[part.indices[i + 1]],
                                              &part.vertices[part.indices[i + 2]]};
        const auto [low, high] = std::minmax({corners[0]->band, corners[1]->band, corners[2]->band});
        const int first = std::max(1, static_cast<int>(std::ceil(low * bands - 1e-6)));
        const int last = std::min(bands - 1, static_cast<int>(std::floor(high * bands + 1e-6)));
        for (int level = first; level <= last; ++level)
            addSegment(corners, static_cast<double>(level) / bands, segments);
    }
}

} // namespace velmora::engine
