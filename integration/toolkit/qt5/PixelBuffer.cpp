#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/LargeImage.h"
#include "integration/toolkit/PlainPixels.h"

#include <QGLPixelBuffer>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFramebufferObject>
#include <algorithm>

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

GLint integerOf(QOpenGLFunctions& gl, GLenum name)
{
    GLint value = 0;
    gl.glGetIntegerv(name, &value);
    return value;
}

/// Copies a multisampled framebuffer object into a plain one, whatever the scissor is.
void resolve(GLuint multisampled, const QOpenGLFramebufferObject& plain)
{
    QOpenGLExtraFunctions& gl = *QOpenGLContext::currentContext()->extraFunctions();
    const bool scissored = gl.glIsEnabled(GL_SCISSOR_TEST);
    gl.glDisable(GL_SCISSOR_TEST);
    gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, multisampled);
    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, plain.handle());
    gl.glBlitFramebuffer(0, 0, plain.width(), plain.height(), 0, 0, plain.width(), plain.height(), GL_COLOR_BUFFER_BIT,
                         GL_NEAREST);
    if (scissored)
        gl.glEnable(GL_SCISSOR_TEST);
}

/// OpenGL's first row is the lowest.
void turnUpsideDown(QImage& image)
{
    for (int y = 0; y < image.height() / 2; ++y) {
        uchar* const row = image.scanLine(y);
        std::swap_ranges(row, row + image.bytesPerLine(), image.scanLine(image.height() - 1 - y));
    }
}

/// The toolkit's own way fills two images with the pixels, one after the other.
QImage readPixels(GLuint framebuffer, const QSize& size)
{
    QImage image = newLargeImage(size.width(), size.height(), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
    gl.glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    gl.glReadPixels(0, 0, size.width(), size.height(), GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, image.bits());
    turnUpsideDown(image);
    return image;
}

QImage readResolved(GLuint multisampled, const QSize& size)
{
    const QOpenGLFramebufferObject plain(size, QOpenGLFramebufferObjectFormat());
    if (!plain.isValid())
        return QImage();
    resolve(multisampled, plain);
    return readPixels(plain.handle(), size);
}

} // namespace

bool hasPixelBuffers()
{
    // Without OpenGL the toolkit's own question is a null dereference.
    return isGuiClient() && canDrawOffscreen(QSize(1, 1)) && QGLPixelBuffer::hasOpenGLPbuffers();
}

struct PixelBuffer::Impl {
    QGLPixelBuffer buffer;
    bool isUsable = false;
    /// The framebuffer object behind the buffer, and whether it must be resolved before it can be read.
    GLuint framebuffer = 0;
    bool isMultisampled = false;
};

PixelBuffer::PixelBuffer(const QSize& size, const FormatRequest& request) : m_impl(new Impl{{size, formatFor(request)}})
{
    const CurrentContextKeeper keeper;
    if (!makeCurrent())
        return;
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    QOpenGLFunctions& gl = *context->functions();
    // The first makeCurrent binds the framebuffer object behind the buffer, if that could be made.
    m_impl->framebuffer = static_cast<GLuint>(integerOf(gl, GL_FRAMEBUFFER_BINDING));
    const int samples = integerOf(gl, GL_SAMPLES);
    const QGLFormat asked = formatFor(request);
    m_impl->isUsable = m_impl->framebuffer != context->defaultFramebufferObject() &&
                       gl.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE &&
                       (!asked.sampleBuffers() || samples >= asked.samples());
    m_impl->isMultisampled = samples > 0;
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

// The buffer's own makeCurrent() answers yes for every valid buffer, even when the window system refused. The
// answers differ only where that yes is untrue.
bool PixelBuffer::makeCurrent()
{
    // The context first: the buffer goes on with a framebuffer object, whatever is current by then.
    QGLContext* const context = m_impl->buffer.isValid() ? m_impl->buffer.context() : nullptr;
    if (!context)
        return false;
    context->makeCurrent();
    return QGLContext::currentContext() == context && m_impl->buffer.makeCurrent();
}

void PixelBuffer::doneCurrent()
{
    m_impl->buffer.doneCurrent();
}

// The toolkit destroys a buffer that was never current by making it current, and does not survive it
// when that fails and nothing else is current.
bool PixelBuffer::canBeDestroyed()
{
    const CurrentContextKeeper keeper;
    return !m_impl->buffer.isValid() || QOpenGLContext::currentContext() || makeCurrent();
}

QImage PixelBuffer::readBack()
{
    if (!isUsable() || !makeCurrent())
        return QImage();
    const PlainPixels plainPixels;
    const GLuint framebuffer = m_impl->framebuffer;
    QImage image = m_impl->isMultisampled ? readResolved(framebuffer, size()) : readPixels(framebuffer, size());
    QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    return image;
}

} // namespace velmora::sdk::integration::toolkit
