#include "integration/offscreen/OffscreenImagePBuffer.h"

#include "engine/VelEng.h"
#include "integration/StyleSettings.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/PixelBuffer.h"
#include "toolbox/StyleValue.h"

namespace velmora::sdk::integration::intern {

namespace {

toolkit::FormatRequest configuredFormat()
{
    const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    toolkit::FormatRequest request;
    request.depthSize = readStyleInteger(section, "DepthBufferSize");
    request.samples = readStyleInteger(section, "MaxMultiSamples");
    request.accumSize = readStyleInteger(section, "MaxAccumBufferSize");
    return request;
}

std::unique_ptr<toolkit::PixelBuffer> createPBuffer(int width, int height, bool useConfiguredFormat)
{
    const QSize size(width, height);
    if (!toolkit::canDrawOffscreen(size))
        return nullptr;
    return toolkit::newUsablePixelBuffer(size, useConfiguredFormat ? configuredFormat() : toolkit::FormatRequest());
}

} // namespace

OffscreenImagePBuffer::OffscreenImagePBuffer(int width, int height)
    : m_pbuffer(createPBuffer(width, height, true)), m_glContext(*this)
{
    if (!m_pbuffer)
        m_pbuffer = createPBuffer(width, height, false);
}

OffscreenImagePBuffer::~OffscreenImagePBuffer()
{
    if (m_pbuffer)
        m_pbuffer->doneCurrent();
}

bool OffscreenImagePBuffer::render(ExportRegion_e region)
{
    // Only 1 counts, unlike for the software image. Deliberate.
    return VelEngRenderOffscreenImage(region, this) == 1;
}

int OffscreenImagePBuffer::width() const
{
    return m_pbuffer->size().width();
}

int OffscreenImagePBuffer::height() const
{
    return m_pbuffer->size().height();
}

QImage OffscreenImagePBuffer::toImage()
{
    return m_pbuffer->readBack();
}

bool OffscreenImagePBuffer::GLContext::setCurrentGL()
{
    return m_image.m_pbuffer->makeCurrent();
}

} // namespace velmora::sdk::integration::intern
