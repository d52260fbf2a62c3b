#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/ContextFacts.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/qt5/FramebufferReading.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <algorithm>

namespace velmora::sdk::integration::toolkit {

bool hasPixelBuffers()
{
    return isGuiClient() && canDrawOffscreen(QSize(1, 1));
}

struct PixelBuffer::Impl {
    QSize size;
    int samples;
    QOffscreenSurface surface;
    QOpenGLContext context;
    std::unique_ptr<QOpenGLFramebufferObject> framebuffer;
    LargeImage picture;

    bool isMultisampled() const { return framebuffer->format().samples() > 0; }

    void createContext()
    {
        QSurfaceFormat format = screenFormat(FormatRequest());
        format.setSamples(0);
        context.setFormat(format);
        if (!context.create())
            return;
        surface.setFormat(context.format());
        surface.create();
    }

    void createFramebuffer()
    {
        QOpenGLFramebufferObjectFormat format;
        format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
        format.setSamples(samples);
        framebuffer = std::make_unique<QOpenGLFramebufferObject>(size, format);
        framebuffer->bind();
        context.functions()->glViewport(0, 0, size.width(), size.height());
    }
};

PixelBuffer::PixelBuffer(const QSize& size, const FormatRequest& request) : m_impl(std::make_unique<Impl>())
{
    m_impl->size = size;
    m_impl->samples = std::max(request.samples, 0);
    m_impl->createContext();
    const CurrentContextKeeper keeper;
    if (m_impl->context.isValid() && m_impl->context.makeCurrent(&m_impl->surface))
        m_impl->createFramebuffer();
}

// The framebuffer object goes with its context, which it needs not to be current.
PixelBuffer::~PixelBuffer() = default;

bool PixelBuffer::isUsable() const
{
    const auto& framebuffer = m_impl->framebuffer;
    return framebuffer && framebuffer->isValid() && framebuffer->format().samples() >= m_impl->samples;
}

QSize PixelBuffer::size() const
{
    return m_impl->size;
}

bool PixelBuffer::makeCurrent()
{
    return m_impl->framebuffer && m_impl->context.makeCurrent(&m_impl->surface) && m_impl->framebuffer->bind();
}

void PixelBuffer::doneCurrent()
{
    releaseCurrentContext();
}

bool PixelBuffer::canBeDestroyed()
{
    return true;
}

QImage PixelBuffer::readBack()
{
    if (!isUsable() || !makeCurrent())
        return QImage();
    return readFramebuffer(m_impl->framebuffer->handle(), size(), m_impl->isMultisampled(), m_impl->picture);
}

} // namespace velmora::sdk::integration::toolkit
