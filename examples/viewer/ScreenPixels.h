#pragma once

#include "integration/glarea/GLDrawArea.h"

#include <QSize>

namespace viewer {

// The engine counts in pixels of the screen, the toolkit's windows in its own. Qt 4's are the same; Qt 5
// can scale them (QT_SCALE_FACTOR and the like).

/// The area's size in pixels of the screen.
inline QSize screenSize(const velmora::sdk::integration::GLDrawArea& area)
{
    int width = 0;
    int height = 0;
    area.getSize(&width, &height);
    return QSize(width, height);
}

/// How many pixels of the screen are one of the area's, in each direction. The area must not be empty.
inline double screenPixelsPerPixel(const velmora::sdk::integration::GLDrawArea& area)
{
    return static_cast<double>(screenSize(area).width()) / area.width();
}

} // namespace viewer
