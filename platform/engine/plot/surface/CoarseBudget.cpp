#include "engine/plot/surface/CoarseBudget.h"

#include <algorithm>

namespace velmora::engine {
namespace {

constexpr std::chrono::milliseconds Slow{20};
constexpr std::chrono::milliseconds Fast{6};
constexpr int SlowPictures = 3;
constexpr int FastPictures = 50;
constexpr std::size_t LeastTriangles = 4000;
constexpr std::size_t MostTriangles = 60000;

} // namespace

void CoarseBudget::took(std::chrono::duration<double> time)
{
    m_tooSlow = time > Slow ? m_tooSlow + 1 : 0;
    m_fast = time < Fast ? m_fast + 1 : 0;
    if (m_tooSlow == SlowPictures) {
        m_triangles = std::max(m_triangles / 2, LeastTriangles);
        m_tooSlow = 0;
    }
    if (m_fast == FastPictures) {
        m_triangles = std::min(m_triangles * 2, MostTriangles);
        m_fast = 0;
    }
}

} // namespace velmora::engine
