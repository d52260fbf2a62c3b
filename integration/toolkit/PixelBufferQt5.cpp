#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/LargeImage.h"
#include "integration/toolkit/PlainPixels.h"

#include <QGLContext>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFramebufferObject>
#include <algorithm>

namespace velmora::sdk::integration::toolkit {

namespace {

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

bool reallyMakeCurrent(QGLPixelBuffer& buffer)
{
    // The context first: the buffer goes on with a framebuffer object, whatever is current by then.
    QGLContext* const context = buffer.isValid() ? buffer.context() : nullptr;
    if (!context)
        return false;
    context->makeCurrent();
    return QGLContext::currentContext() == context && buffer.makeCurrent();
}

PixelBuffer::PixelBuffer(const QSize& size, const QGLFormat& format) : QGLPixelBuffer(size, format)
{
    const CurrentContextKeeper keeper;
    if (!reallyMakeCurrent(*this))
        return;
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    QOpenGLFunctions& gl = *context->functions();
    // The first makeCurrent binds the framebuffer object behind the buffer, if that could be made.
    const auto framebuffer = static_cast<GLuint>(integerOf(gl, GL_FRAMEBUFFER_BINDING));
    const int samples = integerOf(gl, GL_SAMPLES);
    m_usable = framebuffer != context->defaultFramebufferObject() &&
               gl.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE &&
               (!format.sampleBuffers() || samples >= format.samples());
    m_framebuffer = framebuffer;
    m_multisampled = samples > 0;
}

// The toolkit destroys a buffer that was never current by making it current, and does not survive it
// when that fails and nothing else is current.
bool PixelBuffer::canBeDestroyed()
{
    const CurrentContextKeeper keeper;
    return !isValid() || QOpenGLContext::currentContext() || reallyMakeCurrent(*this);
}

QImage PixelBuffer::readBack()
{
    if (!m_usable || !reallyMakeCurrent(*this))
        return QImage();
    const PlainPixels plainPixels;
    QImage image = m_multisampled ? readResolved(m_framebuffer, size()) : readPixels(m_framebuffer, size());
    QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    return image;
}

} // namespace velmora::sdk::integration::toolkit
