#include "integration/toolkit/FramebufferLimit.h"

#include <QSize>

namespace velmora::sdk::integration::toolkit {

// The largest drawable of the X protocol: Qt 4 draws into pixel buffers and pixmaps of the server, which
// itself refuses what it cannot hold.
QSize largestOffscreenSize()
{
    return QSize(32767, 32767);
}

} // namespace velmora::sdk::integration::toolkit
