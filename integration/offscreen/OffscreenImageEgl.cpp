#include "integration/offscreen/OffscreenImageEgl.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/offscreen/EveryContext.h"
#include "integration/offscreen/ImageSizeText.h"
#include "integration/opengl/FramebufferReader.h"
#include "toolbox/StyleValue.h"

namespace velmora::sdk::integration::intern {

namespace {

/// Of a hardware image, as a pixel buffer takes it; by software as OSMesa has it: without samples, and with
/// the most of depth when that is not set.
FramebufferFormat configuredFormat(EglRenderer renderer)
{
    constexpr int MostDepth = 32;
    const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    const int depthBits = readStyleInteger(section, "DepthBufferSize");
    FramebufferFormat format;
    if (depthBits > 0)
        format.depthBits = depthBits;
    else if (renderer == EglRenderer::Software)
        format.depthBits = MostDepth;
    const int samples = renderer == EglRenderer::Any ? readStyleInteger(section, "MaxMultiSamples") : 0;
    if (samples > 0)
        format.samples = samples;
    return format;
}

/// Whether an image of the size can be had; the software one says why not.
bool isPossible(int width, int height, const FramebufferSize& largest, EglRenderer renderer)
{
    const bool tooLarge = width > largest.width || height > largest.height;
    if (renderer == EglRenderer::Software && tooLarge)
        throw ExceptionBase(sizeExceedsText(width, height, largest.width, largest.height), false);
    if (renderer == EglRenderer::Software && (width < 0 || height < 0))
        throw ExceptionBase(sizeIsNegativeText(width, height), false);
    return !tooLarge && width > 0 && height > 0;
}

ImageFramebuffer newImageFramebuffer(int width, int height, EglRenderer renderer)
{
    const ReadingGL& gl = SurfacelessContext::gl();
    if (!isPossible(width, height, largestFramebuffer(gl), renderer))
        return {};
    const ImageFramebuffer asConfigured = newFramebuffer(gl, width, height, configuredFormat(renderer));
    return asConfigured.name != 0 ? asConfigured : newFramebuffer(gl, width, height, FramebufferFormat());
}

} // namespace

OffscreenImageEgl::OffscreenImageEgl(int width, int height, EglRenderer renderer) : m_glContext(*this)
{
    const EveryContextKeeper keeper;
    releaseEveryContext();
    m_context = SurfacelessContext::create(renderer);
    if (m_context && m_context->makeCurrent())
        m_framebuffer = newImageFramebuffer(width, height, renderer);
}

OffscreenImageEgl::~OffscreenImageEgl() = default;

bool OffscreenImageEgl::render(ExportRegion_e region)
{
    struct Release {
        ~Release() { context.release(); }
        const SurfacelessContext& context;
    } const atTheEnd{*m_context};
    // Only 1 counts, as for the other image that is drawn by hardware.
    return VelEngRenderOffscreenImage(region, this) == 1;
}

QImage OffscreenImageEgl::toImage()
{
    std::uint32_t* const pixels = m_picture.pixelsFor(width(), height());
    if (!pixels)
        return QImage();
    const EveryContextKeeper keeper;
    if (!m_glContext.setCurrentGL() || !readFramebuffer(SurfacelessContext::gl(), m_framebuffer, pixels))
        return QImage();
    return m_picture.image();
}

bool OffscreenImageEgl::GLContext::setCurrentGL()
{
    releaseEveryContext();
    if (!m_image.m_context->makeCurrent())
        return false;
    bindFramebuffer(SurfacelessContext::gl(), m_image.m_framebuffer.name);
    return true;
}

bool OffscreenImageEgl::GLContext::clearCurrentGL()
{
    m_image.m_context->release();
    return true;
}

} // namespace velmora::sdk::integration::intern
