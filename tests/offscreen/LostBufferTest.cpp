// Pixel buffers whose context can no longer be made current. The toolkit says yes all the same.

#include "chosen_toolkit/GLWidget.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/toolkit/PixelBuffer.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/RefusedContexts.h"
#include "tests/offscreen/TestPicture.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::OffscreenImagePBuffer;

class LostBuffer : public ::testing::Test {
protected:
    /// Asks before anything is refused: the answer is kept.
    void SetUp() override { ASSERT_TRUE(toolkit::hasPixelBuffers()); }
    /// Something must have been refused, or the test has tested nothing.
    void TearDown() override { EXPECT_GT(RefusedContexts::count(), m_refusedBefore); }

private:
    int m_refusedBefore = RefusedContexts::count();
};

TEST_F(LostBuffer, ABufferThatCannotBeMadeCurrentYieldsNoImage)
{
    const RefusedContexts refusal;
    EXPECT_FALSE(OffscreenImagePBuffer(16, 16).isValid());
}

TEST_F(LostBuffer, ABufferThatCannotBeMadeCurrentYieldsNoImageWhileAWidgetIsCurrent)
{
    toolkit::GLWidget widget;
    widget.makeCurrent();
    {
        const RefusedContexts refusal;
        EXPECT_FALSE(OffscreenImagePBuffer(16, 16).isValid());
    }
    widget.makeCurrent();
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

TEST_F(LostBuffer, ItsContextAnswersNoToBeingMadeCurrent)
{
    OffscreenImagePBuffer image(16, 16);
    ASSERT_TRUE(image.isValid());
    EXPECT_TRUE(image.getGLContext().setCurrentGL());
    toolkit::GLWidget widget;
    widget.makeCurrent();
    {
        const RefusedContexts refusal;
        EXPECT_FALSE(image.getGLContext().setCurrentGL());
    }
    EXPECT_TRUE(image.getGLContext().setCurrentGL());
}

TEST_F(LostBuffer, IsNotReadAndCanBeReadOnceItIsBack)
{
    OffscreenImagePBuffer image(51, 37);
    ASSERT_TRUE(image.isValid());
    renderImage(ImageKind::PixelBuffer, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    for (const bool widgetIsCurrent : {false, true}) {
        toolkit::GLWidget widget;
        widget.makeCurrent();
        if (!widgetIsCurrent)
            widget.doneCurrent();
        const RefusedContexts refusal;
        EXPECT_TRUE(image.toImage().isNull());
    }
    EXPECT_EQ(image.toImage(), tiles(51, 37));
}

} // namespace
} // namespace velmora::test
