#include "chosen_toolkit/VisualChoosingContext.h"

#include "integration/toolkit/VisualSizes.h"

namespace velmora::sdk::integration::toolkit {

namespace {

QGLFormat formatLike(const VisualSizes& visual, QGLFormat format)
{
    format.setDoubleBuffer(visual.doubleBuffer);
    format.setRedBufferSize(visual.red);
    format.setGreenBufferSize(visual.green);
    format.setBlueBufferSize(visual.blue);
    format.setAlphaBufferSize(visual.alpha);
    format.setAlpha(visual.alpha > 0);
    format.setDepthBufferSize(visual.depth);
    format.setStencilBufferSize(visual.stencil);
    format.setStencil(visual.stencil > 0);
    format.setSamples(visual.samples);
    format.setSampleBuffers(visual.samples > 0);
    return format;
}

// A size that was not set means any: 1 or more.
int sizeIf(bool isWanted, int size)
{
    return isWanted ? qMax(size, 1) : 0;
}

// Samples that were not set mean 4.
constexpr int OrdinarySamples = 4;

VisualSizes sizesFor(const QGLFormat& format)
{
    VisualSizes sizes;
    sizes.doubleBuffer = format.doubleBuffer();
    sizes.stereo = format.stereo();
    sizes.red = sizeIf(true, format.redBufferSize());
    sizes.green = sizeIf(true, format.greenBufferSize());
    sizes.blue = sizeIf(true, format.blueBufferSize());
    sizes.alpha = sizeIf(format.alpha(), format.alphaBufferSize());
    sizes.depth = sizeIf(format.depth(), format.depthBufferSize());
    sizes.stencil = sizeIf(format.stencil(), format.stencilBufferSize());
    sizes.accum = sizeIf(format.accum(), format.accumBufferSize());
    if (format.sampleBuffers())
        sizes.samples = format.samples() == -1 ? OrdinarySamples : format.samples();
    return sizes;
}

} // namespace

VisualChoosingContext::VisualChoosingContext(const QGLFormat& format) : QGLContext(format) {}

void* VisualChoosingContext::chooseVisual()
{
    return chooseVisualWith(sizesFor(format())).release();
}

bool VisualChoosingContext::toolkitMustChoose() const
{
    return false;
}

bool VisualChoosingContext::chooseContext(const QGLContext* shareContext)
{
    const OwnedVisual chosen(chooseVisual());
    if (chosen)
        setFormat(formatLike(sizesOfVisual(chosen.get()), format()));
    return QGLContext::chooseContext(shareContext);
}

} // namespace velmora::sdk::integration::toolkit
