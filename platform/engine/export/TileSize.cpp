#include "engine/export/TileSize.h"

#include <algorithm>

namespace velmora::engine {
namespace {

// An image takes about four times this: colours, depth and the copy that is read back.
constexpr long MostTilePixels = 4L * 1024 * 1024;
constexpr long MostBandBytes = 32L * 1024 * 1024;
constexpr int BytesPerPixel = 3;
// Hardly any image is larger in one direction. Asking for more would only make the bands thinner
// than they need to be when it is refused.
constexpr int UsualLargestSide = 16384;
// An image that is refused at this size is not refused for its size.
constexpr int SmallestSide = 64;

int halfOf(int count)
{
    return count - count / 2;
}

} // namespace

TileSize::TileSize(const PictureRequest& request)
    : m_supersample(request.supersample), m_columns(std::min(request.width, UsualLargestSide / request.supersample)),
      m_rows(0)
{
    const long rowsByTile = MostTilePixels / (long(width()) * m_supersample);
    const long rowsByBand = MostBandBytes / (long(request.width) * BytesPerPixel * (request.transparent ? 2 : 1));
    const long most = std::min<long>(request.height, UsualLargestSide / m_supersample);
    m_rows = static_cast<int>(std::clamp(std::min(rowsByTile, rowsByBand), 1L, most));
}

bool TileSize::halve()
{
    if (std::max(width(), height()) <= std::max(SmallestSide, m_supersample))
        return false;
    int& larger = m_columns >= m_rows ? m_columns : m_rows;
    larger = halfOf(larger);
    return true;
}

} // namespace velmora::engine
