#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/qt5/FramebufferReading.h"

#include <QGLPixelBuffer>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

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
    LargeImage picture = {};
};

PixelBuffer::PixelBuffer(const QSize& size, const FormatRequest& request) : m_impl(new Impl{{size, formatFor(request)}})
{
    const CurrentContextKeeper keeper;
    if (!makeCurrent())
        return;
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    QOpenGLFunctions& gl = *context->functions();
    // The first makeCurrent binds the framebuffer object behind the buffer, if that could be made.
    m_impl->framebuffer = static_cast<GLuint>(currentInteger(GL_FRAMEBUFFER_BINDING));
    const int samples = currentInteger(GL_SAMPLES);
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
    if (QGLContext::currentContext() != context || !m_impl->buffer.makeCurrent())
        return false;
    // The toolkit binds it the first time only.
    if (m_impl->framebuffer != 0)
        QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, m_impl->framebuffer);
    return true;
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
    return readFramebuffer(m_impl->framebuffer, size(), m_impl->isMultisampled, m_impl->picture);
}

} // namespace velmora::sdk::integration::toolkit
