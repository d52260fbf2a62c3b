#include "chosen_toolkit/VisualChoosingContext.h"

#include "integration/toolkit/VisualSizes.h"

namespace velmora::sdk::integration::toolkit {

namespace {

QSurfaceFormat formatLike(const VisualSizes& visual, QSurfaceFormat format)
{
    format.setSwapBehavior(visual.doubleBuffer ? QSurfaceFormat::DoubleBuffer : QSurfaceFormat::SingleBuffer);
    format.setRedBufferSize(visual.red);
    format.setGreenBufferSize(visual.green);
    format.setBlueBufferSize(visual.blue);
    format.setAlphaBufferSize(visual.alpha);
    format.setDepthBufferSize(visual.depth);
    format.setStencilBufferSize(visual.stencil);
    format.setSamples(visual.samples);
    return format;
}

// What was not set is -1: of the colours that means any, of the others none.
VisualSizes sizesFor(const QSurfaceFormat& format)
{
    VisualSizes sizes;
    sizes.doubleBuffer = format.swapBehavior() != QSurfaceFormat::SingleBuffer;
    sizes.stereo = format.stereo();
    sizes.red = qMax(format.redBufferSize(), 1);
    sizes.green = qMax(format.greenBufferSize(), 1);
    sizes.blue = qMax(format.blueBufferSize(), 1);
    sizes.alpha = qMax(format.alphaBufferSize(), 0);
    sizes.depth = qMax(format.depthBufferSize(), 0);
    sizes.stencil = qMax(format.stencilBufferSize(), 0);
    sizes.samples = qMax(format.samples(), 0);
    return sizes;
}

} // namespace

VisualChoosingContext::VisualChoosingContext(const QSurfaceFormat& format) : m_requestedFormat(format) {}

VisualChoosingContext::~VisualChoosingContext() = default;

void* VisualChoosingContext::chooseVisual()
{
    return chooseVisualWith(sizesFor(m_requestedFormat)).release();
}

bool VisualChoosingContext::toolkitMustChoose() const
{
    return false;
}

bool VisualChoosingContext::create()
{
    const OwnedVisual chosen(chooseVisual());
    if (chosen)
        m_requestedFormat = formatLike(sizesOfVisual(chosen.get()), m_requestedFormat);
    setFormat(m_requestedFormat);
    return QOpenGLContext::create();
}

} // namespace velmora::sdk::integration::toolkit
