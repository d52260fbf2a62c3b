#include "integration/toolkit/PixelBuffer.h"

#include "integration/opengl/PlainReading.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/GuiClient.h"

#include <QGLContext>
#include <QGLPixelBuffer>

namespace velmora::sdk::integration::toolkit {

namespace {

QGLFormat formatFor(const FormatRequest& request)
{
    QGLFormat format;
    if (request.depthSize > 0)
        format.setDepthBufferSize(request.depthSize);
    if (request.samples > 0)
        format.setSamples(request.samples);
    if (request.accumSize > 0)
        format.setAccumBufferSize(request.accumSize);
    format.setDirectRendering(false);
    format.setDoubleBuffer(false);
    return format;
}

intern::ReadingGL::EntryPoint entryPoint(const char* name)
{
    return reinterpret_cast<intern::ReadingGL::EntryPoint>(
        QGLContext::currentContext()->getProcAddress(QLatin1String(name)));
}

} // namespace

bool hasPixelBuffers()
{
    return isGuiClient() && QGLPixelBuffer::hasOpenGLPbuffers();
}

struct PixelBuffer::Impl {
    QGLPixelBuffer buffer;
    bool isUsable;
};

PixelBuffer::PixelBuffer(const QSize& size, const FormatRequest& request)
    : m_impl(new Impl{{size, formatFor(request)}, false})
{
    // A buffer that the server refused shows only when it is used.
    const CurrentContextKeeper keeper;
    m_impl->isUsable = makeCurrent();
}

PixelBuffer::~PixelBuffer() = default;

bool PixelBuffer::isUsable() const
{
    return m_impl->isUsable;
}

QSize PixelBuffer::size() const
{
    return m_impl->buffer.size();
}

bool PixelBuffer::makeCurrent()
{
    // Refused, the toolkit goes on with the context that was current before.
    if (!m_impl->buffer.makeCurrent())
        return false;
    const QGLContext* const context = QGLContext::currentContext();
    return context && context->device() == &m_impl->buffer;
}

void PixelBuffer::doneCurrent()
{
    m_impl->buffer.doneCurrent();
}

bool PixelBuffer::canBeDestroyed()
{
    return true;
}

QImage PixelBuffer::readBack()
{
    if (!isUsable() || !makeCurrent())
        return QImage();
    const intern::ReadingGL gl(entryPoint);
    gl.forgetErrors();
    if (!gl.answers())
        return QImage();
    const intern::PlainReading plain(gl);
    const QImage image = m_impl->buffer.toImage();
    return gl.succeeded() ? image : QImage();
}

} // namespace velmora::sdk::integration::toolkit
