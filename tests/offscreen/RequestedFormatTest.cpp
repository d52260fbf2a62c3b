// What the toolkit's own pixel buffer is asked for.
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"

#include <QGLContext>
#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using sdk::integration::intern::OffscreenImagePBuffer;

/// What the toolkit was asked for.
QGLFormat requestedFormat()
{
    OffscreenImagePBuffer image(32, 32);
    QGLFormat format;
    renderImage(ImageKind::PixelBuffer, image,
                [&](const GLTable&, int, int) { format = QGLContext::currentContext()->requestedFormat(); });
    return format;
}

TEST(OffscreenImagePBuffer, TheToolkitIsAskedForAPlainBufferWithoutDirectRenderingAndDoubleBuffering)
{
    const QGLFormat format = requestedFormat();
    EXPECT_FALSE(format.doubleBuffer());
    EXPECT_FALSE(format.directRendering());
    EXPECT_FALSE(format.sampleBuffers());
    EXPECT_FALSE(format.accum());
    EXPECT_EQ(format.depthBufferSize(), QGLFormat().depthBufferSize());
}

TEST(OffscreenImagePBuffer, TheToolkitIsAskedForWhatIsConfigured)
{
    const ImageSetting depth("DepthBufferSize", 16);
    // One after the other: X servers rarely have a pixel buffer with both.
    for (const bool accumulates : {false, true}) {
        const ImageSetting samples("MaxMultiSamples", accumulates ? 0 : 4);
        const ImageSetting accumulation("MaxAccumBufferSize", accumulates ? 8 : 0);
        const QGLFormat format = requestedFormat();
        EXPECT_EQ(format.depthBufferSize(), 16);
        EXPECT_EQ(format.samples(), accumulates ? QGLFormat().samples() : 4);
        EXPECT_EQ(format.accumBufferSize(), accumulates ? 8 : QGLFormat().accumBufferSize());
        EXPECT_FALSE(format.doubleBuffer());
        EXPECT_FALSE(format.directRendering());
    }
}

} // namespace
} // namespace velmora::test
