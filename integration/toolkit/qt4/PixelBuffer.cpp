#include "integration/toolkit/PixelBuffer.h"

#include "integration/opengl/FramebufferReader.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/LargeImage.h"

#include <QGLContext>
#include <QGLPixelBuffer>

namespace velmora::sdk::integration::toolkit {

namespace {

/// The name of the buffer that the window system gave.
constexpr unsigned WindowSystemFramebuffer = 0;

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
    bool isUsable = false;
    LargeImage picture = {};
};

PixelBuffer::PixelBuffer(const QSize& size, const FormatRequest& request) : m_impl(new Impl{{size, formatFor(request)}})
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
    if (!context || context->device() != &m_impl->buffer)
        return false;
    // The toolkit leaves a framebuffer object of the drawing's own bound.
    intern::bindFramebuffer(intern::ReadingGL(entryPoint), WindowSystemFramebuffer);
    return true;
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
    // The toolkit's own way asks for no errors, and some drivers give it one sample of each pixel.
    const intern::ReadingGL gl(entryPoint);
    const bool isMultisampled = gl.hasFramebufferObjects() && gl.integer(GL_SAMPLES) > 0;
    const intern::ImageFramebuffer source{WindowSystemFramebuffer, size().width(), size().height(), isMultisampled};
    std::uint32_t* const pixels = m_impl->picture.pixelsFor(source.width, source.height);
    return pixels && intern::readFramebuffer(gl, source, pixels) ? m_impl->picture.image() : QImage();
}

} // namespace velmora::sdk::integration::toolkit
