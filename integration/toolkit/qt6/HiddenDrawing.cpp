#include "integration/toolkit/HiddenDrawing.h"

#include "integration/opengl/FramebufferReader.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/PixelBuffer.h"

namespace velmora::sdk::integration::toolkit {

// No widget of this toolkit renders into a picture without being shown; a buffer does as well.
QImage drawHidden(const QSize& size, const std::function<void()>& draw)
{
    PixelBuffer buffer(size, FormatRequest());
    if (!buffer.isUsable() || !buffer.makeCurrent())
        return QImage();
    intern::ReadingGL(&currentFunction).forgetErrors();
    draw();
    const QImage image = buffer.readBack();
    releaseCurrentContext();
    return image;
}

} // namespace velmora::sdk::integration::toolkit
