#pragma once

#include <chrono>
#include <cstddef>

namespace velmora::engine {

/// How many triangles a coarse picture may have, so that it is shown at once: adapted to how long coarse
/// pictures take. Only what happens several times in a row counts, so that a dragged surface does not
/// change its level of detail all the time.
class CoarseBudget {
public:
    std::size_t triangles() const { return m_triangles; }
    /// A coarse picture took that long, from the first to the last triangle.
    void took(std::chrono::duration<double> time);

private:
    std::size_t m_triangles = 60000;
    int m_tooSlow = 0; ///< pictures in a row
    int m_fast = 0;
};

} // namespace velmora::engine
