#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/LargeImage.h"

#if QT_VERSION >= 0x050000
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFramebufferObject>
#include <algorithm>
#endif

namespace velmora::sdk::integration::toolkit {

bool hasPixelBuffers()
{
    // Without OpenGL the toolkit's own question is a null dereference.
    return isGuiClient() && canDrawOffscreen(QSize(1, 1)) && QGLPixelBuffer::hasOpenGLPbuffers();
}

namespace {

/// Reads pixels back as if nobody had ever changed how they are stored.
class PlainPixelStorage {
public:
    PlainPixelStorage()
    {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        for (const GLenum mode :
             {GL_PACK_SWAP_BYTES, GL_PACK_LSB_FIRST, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
            glPixelStorei(mode, 0);
    }
    ~PlainPixelStorage() { glPopClientAttrib(); }
    PlainPixelStorage(const PlainPixelStorage&) = delete;
    PlainPixelStorage& operator=(const PlainPixelStorage&) = delete;
};

} // namespace

#if QT_VERSION >= 0x050000

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

PixelBuffer::PixelBuffer(const QSize& size, const QGLFormat& format) : QGLPixelBuffer(size, format)
{
    if (!isValid())
        return;
    const CurrentContextKeeper keeper;
    makeCurrent();
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    if (!context)
        return;
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

QImage PixelBuffer::readBack()
{
    if (!m_usable || !makeCurrent())
        return QImage();
    const PlainPixelStorage storage;
    const QImage image = m_multisampled ? readResolved(m_framebuffer, size()) : readPixels(m_framebuffer, size());
    QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    return image;
}

#else

PixelBuffer::PixelBuffer(const QSize& size, const QGLFormat& format) : QGLPixelBuffer(size, format)
{
    // A buffer that the server refused shows only when it is used.
    const CurrentContextKeeper keeper;
    m_usable = isValid() && makeCurrent();
}

QImage PixelBuffer::readBack()
{
    if (!m_usable || !makeCurrent())
        return QImage();
    const PlainPixelStorage storage;
    return toImage();
}

#endif

} // namespace velmora::sdk::integration::toolkit
