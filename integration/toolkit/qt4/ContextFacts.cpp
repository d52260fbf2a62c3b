#include "integration/toolkit/ContextFacts.h"

namespace velmora::sdk::integration::toolkit {

ContextFacts factsOf(const ContextFormat& format)
{
    return {format.accum(),           format.accumBufferSize(),   format.alphaBufferSize(), format.depth(),
            format.depthBufferSize(), format.stencilBufferSize(), format.doubleBuffer(),    format.redBufferSize(),
            format.greenBufferSize(), format.blueBufferSize(),    format.majorVersion(),    format.minorVersion(),
            format.plane(),           format.swapInterval()};
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
