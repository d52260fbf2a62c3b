#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "chosen_toolkit/GLWidget.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/OwnFramebuffer.h"
#include "tests/offscreen/PackBuffer.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"
#include "tests/support/QtWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::OffscreenImagePBuffer;

/// What OpenGL says about the buffer while it is drawn into.
int valueWhileDrawing(OffscreenImagePBuffer& image, GLenum name)
{
    int value = -1;
    renderImage(ImageKind::PixelBuffer, image, [&](const GLTable& gl, int, int) { value = gl.integer(name); });
    return value;
}

int samplesFor(int configured)
{
    const ImageSetting setting("MaxMultiSamples", configured);
    OffscreenImagePBuffer image(32, 32);
    return image.isValid() ? valueWhileDrawing(image, GL_SAMPLES) : -1;
}

/// How many pixels are neither black nor white where a white shape has a slanted edge.
int smoothedPixels(int configuredSamples)
{
    const ImageSetting setting("MaxMultiSamples", configuredSamples);
    OffscreenImagePBuffer image(64, 64);
    renderImage(ImageKind::PixelBuffer, image, drawDiagonal);
    const QImage pixels = image.toImage();
    return 64 * 64 - countColor(pixels, qRgb(0, 0, 0)) - countColor(pixels, qRgb(255, 255, 255));
}

TEST(OffscreenImagePBuffer, TheConfiguredSamplesAreTaken)
{
    EXPECT_EQ(samplesFor(0), 0);
    EXPECT_EQ(samplesFor(4), 4);
}

TEST(OffscreenImagePBuffer, SamplesSmoothSlantedEdges)
{
    EXPECT_EQ(smoothedPixels(0), 0);
    EXPECT_GT(smoothedPixels(4), 30);
}

TEST(OffscreenImagePBuffer, MoreSamplesThanTheDriverOffersYieldThePlainFormatAndTheRightPicture)
{
    const ImageSetting setting("MaxMultiSamples", 64);
    OffscreenImagePBuffer image(50, 40);
    ASSERT_TRUE(image.isValid());
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
    renderImage(ImageKind::PixelBuffer, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    EXPECT_EQ(differingFraction(image.toImage(), tiles(50, 40), 0), 0.0);
}

TEST(OffscreenImagePBuffer, NegativeConfiguredValuesAreIgnored)
{
    const ImageSetting depth("DepthBufferSize", -24);
    const ImageSetting samples("MaxMultiSamples", -4);
    const ImageSetting accumulation("MaxAccumBufferSize", -16);
    // The toolkit's format ignores them too, but not silently.
    const QtWarnings warnings;
    OffscreenImagePBuffer image(32, 32);
    EXPECT_THAT(warnings.messages(), ::testing::IsEmpty());
    ASSERT_TRUE(image.isValid());
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
    EXPECT_GT(valueWhileDrawing(image, GL_DEPTH_BITS), 0);
}

TEST(OffscreenImagePBuffer, TheConfiguredDepthIsThere)
{
    const ImageSetting depth("DepthBufferSize", 24);
    OffscreenImagePBuffer image(32, 32);
    EXPECT_GE(valueWhileDrawing(image, GL_DEPTH_BITS), 24);
}

TEST(OffscreenImagePBuffer, TheConfigurationIsReadInTheOrderThatIsStated)
{
    testing::EngineProbe::startLog();
    const OffscreenImagePBuffer image(32, 32);
    const std::string section = "styleGet Interface/OpenGLConfig/ImageRendering/";
    EXPECT_THAT(testing::EngineProbe::log(),
                ::testing::ElementsAre(section + "DepthBufferSize", section + "MaxMultiSamples",
                                       section + "MaxAccumBufferSize"));
    testing::EngineProbe::reset();
}

TEST(OffscreenImagePBuffer, ASettingThatCannotBeReadIsNotApplied)
{
    testing::EngineProbe::failStyleReads("Interface/OpenGLConfig/ImageRendering/MaxMultiSamples");
    const ImageSetting setting("MaxMultiSamples", 4);
    OffscreenImagePBuffer image(32, 32);
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
    testing::EngineProbe::reset();
}

TEST(OffscreenImagePBuffer, ExceptionsOfTheConfigurationPassThrough)
{
    testing::EngineProbe::throwAt("ArgList");
    EXPECT_THROW(OffscreenImagePBuffer(32, 32), ExceptionBase);
    testing::EngineProbe::reset();
}

TEST(OffscreenImagePBuffer, ASizeThatNoDriverCanGiveYieldsNoBuffer)
{
    for (const QSize& size : {QSize(100000, 10), QSize(10, 100000), QSize(2000000000, 2000000000), QSize(0, 10),
                              QSize(10, 0), QSize(-10, 10)})
        EXPECT_FALSE(OffscreenImagePBuffer(size.width(), size.height()).isValid())
            << size.width() << "x" << size.height();
}

TEST(OffscreenImagePBuffer, OnlyTheAnswer1OfTheEngineCountsAsRendered)
{
    OffscreenImagePBuffer image(8, 8);
    for (const int answer : {0, 1, 2, -1}) {
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return answer; });
        EXPECT_EQ(image.render(ExportRegion_Page), answer == 1) << answer;
    }
}

TEST(OffscreenImagePBuffer, BeingCreatedLeavesTheCurrentContextCurrent)
{
    toolkit::GLWidget widget;
    widget.makeCurrent();
    const ImageSetting setting("MaxMultiSamples", 4);
    const OffscreenImagePBuffer image(32, 32);
    EXPECT_EQ(toolkit::GLContext::currentContext(), widget.context());
}

TEST(OffscreenImagePBuffer, BeingDestroyedWhileCurrentLeavesNothingOfItCurrent)
{
    toolkit::GLWidget widget;
    {
        OffscreenImagePBuffer image(32, 32);
        EXPECT_TRUE(image.getGLContext().setCurrentGL());
    }
    EXPECT_EQ(toolkit::GLContext::currentContext(), nullptr);
    widget.makeCurrent();
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

TEST(OffscreenImagePBuffer, BeingDestroyedLeavesNoContextCurrentWhosoeverItWas)
{
    toolkit::GLWidget widget;
    {
        const OffscreenImagePBuffer image(32, 32);
        ASSERT_TRUE(image.isValid());
        widget.makeCurrent();
        ASSERT_EQ(toolkit::GLContext::currentContext(), widget.context());
    }
    EXPECT_EQ(toolkit::GLContext::currentContext(), nullptr);
}

class WhatTheDrawingLeavesBehind : public ::testing::TestWithParam<int> {
protected:
    /// The picture of an image whose drawing ends with `leave`.
    QImage pictureAfter(const std::function<void(const GLTable&)>& leave)
    {
        const ImageSetting setting("MaxMultiSamples", GetParam());
        OffscreenImagePBuffer image(51, 37);
        renderImage(ImageKind::PixelBuffer, image, [&](const GLTable& gl, int w, int h) {
            drawTiles(gl, w, h);
            leave(gl);
        });
        return image.toImage();
    }
};

INSTANTIATE_TEST_SUITE_P(SamplesOf, WhatTheDrawingLeavesBehind, ::testing::Values(0, 4));

TEST_P(WhatTheDrawingLeavesBehind, AScissorDoesNotCutThePicture)
{
    const QImage picture = pictureAfter([](const GLTable& gl) {
        gl.enable(GL_SCISSOR_TEST);
        gl.scissor(3, 4, 5, 6);
    });
    EXPECT_EQ(differingFraction(picture, tiles(51, 37), 0), 0.0);
}

TEST_P(WhatTheDrawingLeavesBehind, PixelStorageModesDoNotShearThePicture)
{
    const QImage picture = pictureAfter([](const GLTable& gl) {
        gl.pixelStorei(GL_PACK_ALIGNMENT, 8);
        gl.pixelStorei(GL_PACK_ROW_LENGTH, 40);
        gl.pixelStorei(GL_PACK_SKIP_ROWS, 2);
        gl.pixelStorei(GL_PACK_SKIP_PIXELS, 3);
    });
    EXPECT_EQ(differingFraction(picture, tiles(51, 37), 0), 0.0);
}

TEST_P(WhatTheDrawingLeavesBehind, PixelTransferModesDoNotChangeTheColours)
{
    const QImage picture = pictureAfter([](const GLTable&) {
        for (const GLenum mode : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
            glPixelTransferf(mode, 0.5f);
        for (const GLenum mode : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
            glPixelTransferf(mode, 0.25f);
        const float onlyWhite = 1.0f;
        glPixelMapfv(GL_PIXEL_MAP_R_TO_R, 1, &onlyWhite);
        glPixelTransferi(GL_MAP_COLOR, GL_TRUE);
    });
    EXPECT_EQ(differingFraction(picture, tiles(51, 37), 0), 0.0);
}

TEST_P(WhatTheDrawingLeavesBehind, IsThereAgainAfterThePictureIsRead)
{
    const ImageSetting setting("MaxMultiSamples", GetParam());
    OffscreenImagePBuffer image(51, 37);
    renderImage(ImageKind::PixelBuffer, image, [](const GLTable& gl, int, int) {
        gl.enable(GL_SCISSOR_TEST);
        gl.pixelStorei(GL_PACK_ALIGNMENT, 8);
        gl.pixelStorei(GL_PACK_SKIP_ROWS, 2);
        glPixelTransferf(GL_RED_SCALE, 0.5f);
        glPixelTransferf(GL_BLUE_BIAS, 0.25f);
        glPixelTransferi(GL_MAP_COLOR, GL_TRUE);
    });
    EXPECT_FALSE(image.toImage().isNull());
    ASSERT_TRUE(image.getGLContext().setCurrentGL());
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    const std::pair<GLenum, float> left[] = {
        {GL_PACK_ALIGNMENT, 8},
        {GL_PACK_SKIP_ROWS, 2},
        {GL_RED_SCALE, 0.5f},
        {GL_BLUE_BIAS, 0.25f},
        {GL_MAP_COLOR, 1},
        {GL_ATTRIB_STACK_DEPTH, 0},
        {GL_CLIENT_ATTRIB_STACK_DEPTH, 0},
    };
    for (const auto& [name, expected] : left) {
        float value = -1;
        glGetFloatv(name, &value);
        EXPECT_EQ(value, expected) << name;
    }
}

TEST_P(WhatTheDrawingLeavesBehind, AScissorThatIsOffStaysOff)
{
    const ImageSetting setting("MaxMultiSamples", GetParam());
    OffscreenImagePBuffer image(51, 37);
    renderImage(ImageKind::PixelBuffer, image, [](const GLTable&, int, int) {});
    EXPECT_FALSE(image.toImage().isNull());
    ASSERT_TRUE(image.getGLContext().setCurrentGL());
    EXPECT_FALSE(glIsEnabled(GL_SCISSOR_TEST));
}

TEST_P(WhatTheDrawingLeavesBehind, ABufferForPixelsDoesNotSwallowThePictureAndStaysBound)
{
    const ImageSetting setting("MaxMultiSamples", GetParam());
    OffscreenImagePBuffer image(51, 37);
    unsigned buffer = 0;
    renderImage(ImageKind::PixelBuffer, image, [&](const GLTable& gl, int w, int h) {
        drawTiles(gl, w, h);
        buffer = bindNewPackBuffer();
    });
    EXPECT_EQ(differingFraction(image.toImage(), tiles(51, 37), 0), 0.0);
    ASSERT_TRUE(image.getGLContext().setCurrentGL());
    EXPECT_EQ(boundPackBuffer(), buffer);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_P(WhatTheDrawingLeavesBehind, AFramebufferOfTheEnginesOwnIsNotWhatIsRead)
{
    const ImageSetting setting("MaxMultiSamples", GetParam());
    OffscreenImagePBuffer image(51, 37);
    renderImage(ImageKind::PixelBuffer, image, [&](const GLTable& gl, int w, int h) {
        drawTiles(gl, w, h);
        bindNewFramebuffer(w, h);
        drawCorner(gl, w, h);
    });
    EXPECT_EQ(differingFraction(image.toImage(), tiles(51, 37), 0), 0.0);
}

TEST_P(WhatTheDrawingLeavesBehind, ReadingTwiceAndDrawingBetweenGivesEachPicture)
{
    const ImageSetting setting("MaxMultiSamples", GetParam());
    OffscreenImagePBuffer image(51, 37);
    for (const int variant : {0, 1, 2}) {
        renderImage(ImageKind::PixelBuffer, image,
                    [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, variant); });
        EXPECT_EQ(differingFraction(image.toImage(), tiles(51, 37, variant), 0), 0.0);
        EXPECT_EQ(differingFraction(image.toImage(), tiles(51, 37, variant), 0), 0.0);
    }
}

} // namespace
} // namespace velmora::test
