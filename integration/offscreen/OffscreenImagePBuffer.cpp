#include "integration/offscreen/OffscreenImagePBuffer.h"

#include "engine/VelEng.h"
#include "integration/StyleSettings.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/PixelBuffer.h"
#include "toolbox/StyleValue.h"

namespace velmora::sdk::integration::intern {

namespace {

void applyConfiguration(QGLFormat& format)
{
    const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    const int depthBits = readStyleInteger(section, "DepthBufferSize");
    const int samples = readStyleInteger(section, "MaxMultiSamples");
    const int accumBits = readStyleInteger(section, "MaxAccumBufferSize");
    if (depthBits > 0)
        format.setDepthBufferSize(depthBits);
    if (samples > 0)
        format.setSamples(samples);
    if (accumBits > 0)
        format.setAccumBufferSize(accumBits);
}

std::unique_ptr<toolkit::PixelBuffer> createPBuffer(int width, int height, bool useConfiguredFormat)
{
    const QSize size(width, height);
    if (!toolkit::canDrawOffscreen(size))
        return nullptr;
    QGLFormat format;
    if (useConfiguredFormat)
        applyConfiguration(format);
    format.setDirectRendering(false);
    format.setDoubleBuffer(false);
    return toolkit::newUsablePixelBuffer(size, format);
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
    return m_pbuffer->width();
}

int OffscreenImagePBuffer::height() const
{
    return m_pbuffer->height();
}

QImage OffscreenImagePBuffer::toImage()
{
    return m_pbuffer->readBack();
}

bool OffscreenImagePBuffer::GLContext::setCurrentGL()
{
    return toolkit::reallyMakeCurrent(*m_image.m_pbuffer);
}

} // namespace velmora::sdk::integration::intern
