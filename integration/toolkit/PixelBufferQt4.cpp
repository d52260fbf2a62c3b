#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/PlainPixels.h"

#include <QGLContext>

namespace velmora::sdk::integration::toolkit {

bool reallyMakeCurrent(QGLPixelBuffer& buffer)
{
    // Refused, the toolkit goes on with the context that was current before.
    if (!buffer.makeCurrent())
        return false;
    const QGLContext* const context = QGLContext::currentContext();
    return context && context->device() == &buffer;
}

PixelBuffer::PixelBuffer(const QSize& size, const QGLFormat& format) : QGLPixelBuffer(size, format)
{
    // A buffer that the server refused shows only when it is used.
    const CurrentContextKeeper keeper;
    m_usable = reallyMakeCurrent(*this);
}

bool PixelBuffer::canBeDestroyed()
{
    return true;
}

QImage PixelBuffer::readBack()
{
    if (!m_usable || !reallyMakeCurrent(*this))
        return QImage();
    const PlainPixels plainPixels;
    return toImage();
}

} // namespace velmora::sdk::integration::toolkit
