#include "integration/toolkit/FramebufferLimit.h"

#include <QSize>

namespace velmora::sdk::integration::toolkit {

bool canDrawOffscreen(const QSize& size)
{
    if (size.isEmpty())
        return false;
    // A query that failed says nothing of the next one.
    static QSize limit;
    if (limit.isEmpty())
        limit = largestOffscreenSize();
    return size.width() <= limit.width() && size.height() <= limit.height();
}

} // namespace velmora::sdk::integration::toolkit
