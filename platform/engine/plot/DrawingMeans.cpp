#include "engine/plot/DrawingMeans.h"

namespace velmora::engine {
namespace {

DrawingMeans g_means;

} // namespace

DrawingMeans drawingMeans()
{
    return g_means.gl ? g_means : DrawingMeans{&currentGL(), false};
}

DrawingMeansScope::DrawingMeansScope(const DrawingMeans& means) : m_outer(g_means)
{
    g_means = means;
}

DrawingMeansScope::~DrawingMeansScope()
{
    g_means = m_outer;
}

} // namespace velmora::engine
