#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/LargeImage.h"

#include <QGLContext>
#include <cstring>
#include <vector>

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

/// A buffer object bound for reading would take the pixels instead of the image's memory.
class NoPackBuffer {
public:
    NoPackBuffer()
    {
        const auto* const extensions = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
        if (!extensions || !std::strstr(extensions, "GL_ARB_pixel_buffer_object"))
            return;
        m_bind =
            reinterpret_cast<BindBuffer>(QGLContext::currentContext()->getProcAddress(QLatin1String("glBindBuffer")));
        glGetIntegerv(GL_PIXEL_PACK_BUFFER_BINDING, &m_bound);
        bind(0);
    }
    ~NoPackBuffer() { bind(static_cast<GLuint>(m_bound)); }
    NoPackBuffer(const NoPackBuffer&) = delete;
    NoPackBuffer& operator=(const NoPackBuffer&) = delete;

private:
    using BindBuffer = void (*)(GLenum, GLuint);

    void bind(GLuint buffer) const
    {
        if (m_bind && m_bound != 0)
            m_bind(GL_PIXEL_PACK_BUFFER, buffer);
    }

    BindBuffer m_bind = nullptr;
    GLint m_bound = 0;
};

/// Reads pixels back as if nobody had ever changed how they are stored or what becomes of their
/// colours on the way.
class PlainPixels {
public:
    PlainPixels()
    {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        for (const GLenum mode :
             {GL_PACK_SWAP_BYTES, GL_PACK_LSB_FIRST, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
            glPixelStorei(mode, 0);
        glPushAttrib(GL_PIXEL_MODE_BIT);
        glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
        for (const GLenum mode : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
            glPixelTransferf(mode, 1);
        for (const GLenum mode : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
            glPixelTransferf(mode, 0);
    }
    ~PlainPixels()
    {
        glPopAttrib();
        glPopClientAttrib();
    }
    PlainPixels(const PlainPixels&) = delete;
    PlainPixels& operator=(const PlainPixels&) = delete;

private:
    NoPackBuffer m_noPackBuffer;
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

namespace {

/// The toolkit destroys a buffer that was never current by making it current, and does not survive
/// it when that fails and nothing else is current.
bool canBeDestroyed(PixelBuffer& buffer)
{
    const CurrentContextKeeper keeper;
    return !buffer.isValid() || QOpenGLContext::currentContext() || reallyMakeCurrent(buffer);
}

} // namespace

QImage PixelBuffer::readBack()
{
    if (!m_usable || !reallyMakeCurrent(*this))
        return QImage();
    const PlainPixels plainPixels;
    QImage image = m_multisampled ? readResolved(m_framebuffer, size()) : readPixels(m_framebuffer, size());
    QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    return image;
}

#else

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

namespace {

bool canBeDestroyed(PixelBuffer&)
{
    return true;
}

} // namespace

QImage PixelBuffer::readBack()
{
    if (!m_usable || !reallyMakeCurrent(*this))
        return QImage();
    const PlainPixels plainPixels;
    return toImage();
}

#endif

std::unique_ptr<PixelBuffer> newUsablePixelBuffer(const QSize& size, const QGLFormat& format)
{
    auto buffer = std::make_unique<PixelBuffer>(size, format);
    if (buffer->isUsable())
        return buffer;
    if (!canBeDestroyed(*buffer)) {
        // Kept for good: rather some memory than the application.
        static auto& abandoned = *std::make_unique<std::vector<std::unique_ptr<PixelBuffer>>>().release();
        abandoned.push_back(std::move(buffer));
    }
    return nullptr;
}

} // namespace velmora::sdk::integration::toolkit
