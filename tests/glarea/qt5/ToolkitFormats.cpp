#include "tests/glarea/ToolkitFormats.h"

#include <QGLWidget>
#include <gtest/gtest.h>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>

namespace velmora::test {

using namespace velmora::sdk::integration::toolkit;

ContextFormat formatOfEverything()
{
    return QGLFormat(QGL::DoubleBuffer | QGL::DepthBuffer | QGL::Rgba | QGL::AlphaChannel | QGL::AccumBuffer |
                     QGL::StencilBuffer | QGL::StereoBuffers | QGL::SampleBuffers);
}

ContextFormat formatOfColours()
{
    return QGLFormat(QGL::SingleBuffer | QGL::NoDepthBuffer | QGL::Rgba | QGL::NoStencilBuffer);
}

ContextFormat formatWithDepth()
{
    return QGLFormat(QGL::DepthBuffer | QGL::Rgba | QGL::NoStencilBuffer);
}

std::vector<int> accumulationAttributes()
{
    return {GLX_ACCUM_RED_SIZE, GLX_ACCUM_GREEN_SIZE, GLX_ACCUM_BLUE_SIZE};
}

void setAccumulation(ContextFormat& format, int size)
{
    format.setAccumBufferSize(size);
}

VisualSizes sizesAskedFor(std::unique_ptr<VisualChoosingContext> context)
{
    const QGLWidget widget(context.release()); // the widget owns it
    const QGLFormat asked = widget.context()->requestedFormat();
    EXPECT_EQ(asked.alpha(), asked.alphaBufferSize() > 0);
    EXPECT_EQ(asked.stencil(), asked.stencilBufferSize() > 0);
    EXPECT_EQ(asked.sampleBuffers(), asked.samples() > 0);
    VisualSizes sizes;
    sizes.doubleBuffer = asked.doubleBuffer();
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
