#include "tests/glarea/ToolkitFormats.h"

#include <gtest/gtest.h>

namespace velmora::test {

using namespace velmora::sdk::integration::toolkit;

ContextFormat formatOfEverything()
{
    QSurfaceFormat format(QSurfaceFormat::StereoBuffers);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setAlphaBufferSize(1);
    format.setDepthBufferSize(1);
    format.setStencilBufferSize(1);
    format.setSamples(4);
    return format;
}

ContextFormat formatOfColours()
{
    QSurfaceFormat format;
    format.setSwapBehavior(QSurfaceFormat::SingleBuffer);
    return format;
}

ContextFormat formatWithDepth()
{
    QSurfaceFormat format;
    format.setDepthBufferSize(24);
    return format;
}

std::vector<int> accumulationAttributes()
{
    return {};
}

void setAccumulation(ContextFormat&, int) {}

VisualSizes sizesAskedFor(std::unique_ptr<VisualChoosingContext> context)
{
    EXPECT_TRUE(context->create());
    const QSurfaceFormat asked = context->requestedFormat();
    VisualSizes sizes;
    sizes.doubleBuffer = asked.swapBehavior() == QSurfaceFormat::DoubleBuffer;
    sizes.red = asked.redBufferSize();
    sizes.green = asked.greenBufferSize();
    sizes.blue = asked.blueBufferSize();
    sizes.alpha = asked.alphaBufferSize();
    sizes.depth = asked.depthBufferSize();
    sizes.stencil = asked.stencilBufferSize();
    sizes.samples = asked.samples();
    return sizes;
}

} // namespace velmora::test
