#pragma once

#include "engine/page/Picture.h"

namespace velmora::engine {

class Page;

/// Where the current frame of a page is in its drawing area.
struct FrameInArea {
    int areaHeight = 0;
    PixelRect rect;

    // Pixels of the area, y downwards, and fractions of the frame.
    double fractionX(double x) const { return (x - rect.x) / rect.width; }
    double fractionY(double y) const { return (areaHeight - y - rect.y) / rect.height; }
    double pixelX(double fraction) const { return rect.x + fraction * rect.width; }
    double pixelY(double fraction) const { return areaHeight - rect.y - fraction * rect.height; }
};

/// False for a page that shows nowhere.
bool findFrame(const Page& page, FrameInArea& found);

} // namespace velmora::engine
