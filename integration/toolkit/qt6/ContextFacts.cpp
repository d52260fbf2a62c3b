#include "integration/toolkit/ContextFacts.h"

namespace velmora::sdk::integration::toolkit {

namespace {

// Samples that were not asked for are 4, as everywhere.
constexpr int OrdinarySamples = 4;

int sizeOf(int size)
{
    return qMax(size, 0);
}

} // namespace

// There is neither an accumulation buffer nor a plane to be had.
ContextFacts factsOf(const ContextFormat& format)
{
    ContextFacts facts = {};
    facts.alphaSize = sizeOf(format.alphaBufferSize());
    facts.hasDepth = format.depthBufferSize() > 0;
    facts.depthSize = sizeOf(format.depthBufferSize());
    facts.samples = sizeOf(format.samples());
    facts.stencilSize = sizeOf(format.stencilBufferSize());
    facts.hasDoubleBuffer = format.swapBehavior() != QSurfaceFormat::SingleBuffer;
    facts.redSize = sizeOf(format.redBufferSize());
    facts.greenSize = sizeOf(format.greenBufferSize());
    facts.blueSize = sizeOf(format.blueBufferSize());
    facts.majorVersion = format.majorVersion();
    facts.minorVersion = format.minorVersion();
    facts.swapInterval = format.swapInterval();
    return facts;
}

// The engine draws with the functions that a core profile has not. Accumulation cannot be asked for.
ContextFormat screenFormat(const FormatRequest& request)
{
    ContextFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setVersion(2, 1);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setDepthBufferSize(request.depthSize > 0 ? request.depthSize : 1);
    format.setStencilBufferSize(1);
    format.setSamples(request.samples > 0 ? request.samples : OrdinarySamples);
    return format;
}

} // namespace velmora::sdk::integration::toolkit
