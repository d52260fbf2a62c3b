#include "integration/toolkit/ContextFacts.h"

namespace velmora::sdk::integration::toolkit {

ContextFacts factsOf(const ContextFormat& format)
{
    ContextFacts facts;
    facts.hasAccum = format.accum();
    facts.accumSize = format.accumBufferSize();
    facts.alphaSize = format.alphaBufferSize();
    facts.hasDepth = format.depth();
    facts.depthSize = format.depthBufferSize();
    facts.stencilSize = format.stencilBufferSize();
    facts.samples = format.samples();
    facts.hasDoubleBuffer = format.doubleBuffer();
    facts.redSize = format.redBufferSize();
    facts.greenSize = format.greenBufferSize();
    facts.blueSize = format.blueBufferSize();
    facts.majorVersion = format.majorVersion();
    facts.minorVersion = format.minorVersion();
    facts.plane = format.plane();
    facts.swapInterval = format.swapInterval();
    return facts;
}

ContextFormat screenFormat(const FormatRequest& request)
{
    ContextFormat format(QGL::DoubleBuffer | QGL::DepthBuffer | QGL::Rgba | QGL::SampleBuffers);
    if (request.depthSize > 0)
        format.setDepthBufferSize(request.depthSize);
    if (request.samples > 0)
        format.setSamples(request.samples);
    if (request.accumSize > 0)
        format.setAccumBufferSize(request.accumSize);
    return format;
}

} // namespace velmora::sdk::integration::toolkit
