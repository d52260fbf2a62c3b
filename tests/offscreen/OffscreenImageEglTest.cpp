#include "integration/offscreen/OffscreenImageEgl.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::EglRenderer;
using intern::OffscreenImageEgl;

int valueWhileDrawing(OffscreenImageEgl& image, GLenum name)
{
    int value = -1;
    renderImage(ImageKind::Egl, image, [&](const GLTable& gl, int, int) { value = gl.integer(name); });
    return value;
}

int valueOf(GLenum name, EglRenderer renderer = EglRenderer::Any)
{
    OffscreenImageEgl image(32, 32, renderer);
    return image.isValid() ? valueWhileDrawing(image, name) : -1;
}

int smoothedPixels(EglRenderer renderer)
{
    OffscreenImageEgl image(64, 64, renderer);
    renderImage(ImageKind::Egl, image, drawDiagonal);
    const QImage pixels = image.toImage();
    return 64 * 64 - countColor(pixels, qRgb(0, 0, 0)) - countColor(pixels, qRgb(255, 255, 255));
}

std::string failureOf(int width, int height)
{
    try {
        const OffscreenImageEgl image(width, height, EglRenderer::Software);
    } catch (const ExceptionBase& exception) {
        return exception.what();
    }
    return "";
}

TEST(OffscreenImageEgl, TheConfiguredSamplesAreTakenByHardwareAndSmoothEdges)
{
    EXPECT_EQ(valueOf(GL_SAMPLES), 0);
    EXPECT_EQ(smoothedPixels(EglRenderer::Any), 0);
    const ImageSetting samples("MaxMultiSamples", 4);
    EXPECT_EQ(valueOf(GL_SAMPLES), 4);
    EXPECT_GT(smoothedPixels(EglRenderer::Any), 30);
}

TEST(OffscreenImageEgl, SoftwareHasNoSamplesAsOSMesaHasNone)
{
    const ImageSetting samples("MaxMultiSamples", 4);
    EXPECT_EQ(valueOf(GL_SAMPLES, EglRenderer::Software), 0);
    EXPECT_EQ(smoothedPixels(EglRenderer::Software), 0);
}

TEST(OffscreenImageEgl, MoreSamplesThanTheRendererOffersYieldThePlainFormatAndTheRightPicture)
{
    const ImageSetting setting("MaxMultiSamples", 64);
    OffscreenImageEgl image(50, 40, EglRenderer::Any);
    ASSERT_TRUE(image.isValid());
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
    renderImage(ImageKind::Egl, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    EXPECT_EQ(image.toImage(), tiles(50, 40));
}

TEST(OffscreenImageEgl, TheDepthIsTheConfiguredOneOrMoreAndByDefaultThatOfTheKindItStandsFor)
{
    EXPECT_EQ(valueOf(GL_DEPTH_BITS), 24);
    EXPECT_EQ(valueOf(GL_DEPTH_BITS, EglRenderer::Software), 32);
    for (const int configured : {16, 24, 32}) {
        const ImageSetting depth("DepthBufferSize", configured);
        EXPECT_GE(valueOf(GL_DEPTH_BITS), configured);
        EXPECT_GE(valueOf(GL_DEPTH_BITS, EglRenderer::Software), configured);
    }
}

TEST(OffscreenImageEgl, NegativeAndUnreadableSettingsAreIgnored)
{
    const ImageSetting depth("DepthBufferSize", -24);
    const ImageSetting samples("MaxMultiSamples", 4);
    testing::EngineProbe::failStyleReads("Interface/OpenGLConfig/ImageRendering/MaxMultiSamples");
    EXPECT_EQ(valueOf(GL_SAMPLES), 0);
    EXPECT_EQ(valueOf(GL_DEPTH_BITS), 24);
    testing::EngineProbe::reset();
}

TEST(OffscreenImageEgl, TheConfigurationIsReadInTheOrderOfTheOtherImages)
{
    const std::string section = "styleGet Interface/OpenGLConfig/ImageRendering/";
    testing::EngineProbe::startLog();
    const OffscreenImageEgl hardware(8, 8, EglRenderer::Any);
    EXPECT_THAT(testing::EngineProbe::log(),
                ::testing::ElementsAre(section + "DepthBufferSize", section + "MaxMultiSamples"));
    testing::EngineProbe::clearLog();
    const OffscreenImageEgl software(8, 8, EglRenderer::Software);
    EXPECT_THAT(testing::EngineProbe::log(), ::testing::ElementsAre(section + "DepthBufferSize"));
    testing::EngineProbe::reset();
}

TEST(OffscreenImageEgl, TheRenderersLargestSizeIsDrawnAndOneMoreIsNone)
{
    const int side = valueOf(GL_MAX_RENDERBUFFER_SIZE);
    ASSERT_GE(side, 8192);
    for (const QSize& size : {QSize(side, 3), QSize(3, side)}) {
        OffscreenImageEgl image(size.width(), size.height(), EglRenderer::Any);
        ASSERT_TRUE(image.isValid());
        EXPECT_TRUE(renderImage(ImageKind::Egl, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(image.toImage(), tiles(size.width(), size.height()));
    }
    EXPECT_FALSE(OffscreenImageEgl(side + 1, 3, EglRenderer::Any).isValid());
    EXPECT_FALSE(OffscreenImageEgl(3, side + 1, EglRenderer::Any).isValid());
}

TEST(OffscreenImageEgl, BySoftwareASizeOverTheLargestIsRefusedWithBothSizes)
{
    const std::string side = std::to_string(valueOf(GL_MAX_RENDERBUFFER_SIZE, EglRenderer::Software));
    EXPECT_EQ(failureOf(2000000, 7),
              "The off-screen image size 2000000x7 exceeds the maximum allowed image size of " + side + "x" + side +
                  ". Try reducing the image size or supersampling to allow exporting to succeed.");
    EXPECT_EQ(failureOf(-3, 5), "The off-screen image size -3x5 is negative.");
    EXPECT_EQ(failureOf(16, 16), "");
}

TEST(OffscreenImageEgl, OnlyTheAnswer1OfTheEngineCountsAsRendered)
{
    OffscreenImageEgl image(8, 8, EglRenderer::Any);
    for (const int answer : {0, 1, 2, -1}) {
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return answer; });
        EXPECT_EQ(image.render(ExportRegion_Page), answer == 1) << answer;
    }
}

TEST(OffscreenImageEgl, ThePictureIsOpaqueWhateverAlphaWasDrawn)
{
    OffscreenImageEgl image(5, 4, EglRenderer::Any);
    renderImage(ImageKind::Egl, image, [](const GLTable& gl, int, int) {
        gl.clearColor(0.2f, 0.4f, 0.6f, 0.0f);
        gl.clear(GL_COLOR_BUFFER_BIT);
    });
    EXPECT_EQ(image.toImage().convertToFormat(QImage::Format_ARGB32).pixel(2, 2), qRgb(51, 102, 153));
}

TEST(OffscreenImageEgl, TheDrawingCoversTheWholeImageWithoutSettingAViewport)
{
    OffscreenImageEgl image(20, 10, EglRenderer::Any);
    renderImage(ImageKind::Egl, image, [](const GLTable& gl, int, int) {
        gl.color3ub(0, 0, 255);
        gl.begin(GL_QUADS);
        for (const auto& [x, y] : {std::pair(-1, -1), std::pair(1, -1), std::pair(1, 1), std::pair(-1, 1)})
            gl.vertex3f(static_cast<float>(x), static_cast<float>(y), 0);
        gl.end();
    });
    EXPECT_EQ(countColor(image.toImage(), qRgb(0, 0, 255)), 200);
}

TEST(OffscreenImageEgl, AfterADrawingAlsoOneThatThrowsNoContextIsCurrent)
{
    OffscreenImageEgl image(8, 8, EglRenderer::Any);
    renderImage(ImageKind::Egl, image, [](const GLTable&, int, int) {});
    EXPECT_EQ(intern::egl()->GetCurrentContext(), EGL_NO_CONTEXT);
    EXPECT_THROW(
        renderImage(ImageKind::Egl, image, [](const GLTable&, int, int) { throw ExceptionBase("Half way.", false); }),
        ExceptionBase);
    EXPECT_EQ(intern::egl()->GetCurrentContext(), EGL_NO_CONTEXT);
}

TEST(OffscreenImageEgl, WhatTheHostsEglCallsSpeakOfStaysAsItIs)
{
    const intern::EglLibrary& egl = *intern::egl();
    ASSERT_EQ(egl.BindAPI(EGL_OPENGL_ES_API), static_cast<EGLBoolean>(EGL_TRUE));
    OffscreenImageEgl image(8, 8, EglRenderer::Any);
    renderImage(ImageKind::Egl, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    EXPECT_EQ(image.toImage(), tiles(8, 8));
    EXPECT_EQ(egl.QueryAPI(), static_cast<EGLenum>(EGL_OPENGL_ES_API));
}

} // namespace
} // namespace velmora::test
