#include "engine/page/Frame.h"

#include <algorithm>

namespace velmora::engine {

InchRect boundsOf(const std::vector<Frame>& frames)
{
    if (frames.empty())
        return {};
    InchRect bounds = frames.front().rect;
    double right = bounds.x + bounds.width;
    double top = bounds.y + bounds.height;
    for (const Frame& frame : frames) {
        bounds.x = std::min(bounds.x, frame.rect.x);
        bounds.y = std::min(bounds.y, frame.rect.y);
        right = std::max(right, frame.rect.x + frame.rect.width);
        top = std::max(top, frame.rect.y + frame.rect.height);
    }
    bounds.width = right - bounds.x;
    bounds.height = top - bounds.y;
    return bounds;
}

void fitFramesInto(std::vector<Frame>& frames, const InchRect& target)
{
    const InchRect from = boundsOf(frames);
    if (from.width <= 0 || from.height <= 0)
        return;
    const double scaleX = target.width / from.width;
    const double scaleY = target.height / from.height;
    for (Frame& frame : frames) {
        InchRect& rect = frame.rect;
        rect = {target.x + (rect.x - from.x) * scaleX, target.y + (rect.y - from.y) * scaleY, rect.width * scaleX,
                rect.height * scaleY};
    }
}

} // namespace velmora::engine
