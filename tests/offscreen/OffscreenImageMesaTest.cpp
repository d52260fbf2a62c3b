#include "integration/offscreen/OffscreenImageMesa.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"

#include <QColor>
#include <QGLWidget>
#include <gtest/gtest.h>
#include <limits>

#include <GL/osmesa.h>
#include <dlfcn.h>

namespace {

/// What the last context was asked to have, and how many there are now.
struct Contexts {
    GLenum format = 0;
    GLint depthBits = -1;
    GLint stencilBits = -1;
    GLint accumBits = -1;
    bool shared = false;
    int alive = 0;
};
Contexts contexts;
const QGLContext* currentAtTheDestruction = nullptr; // the toolkit's

template <typename Function>
Function behind(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// A program's own definitions come before those of the library, which they go on to.

extern "C" OSMesaContext OSMesaCreateContextExt(GLenum format, GLint depthBits, GLint stencilBits, GLint accumBits,
                                                OSMesaContext share)
{
    OSMesaContext const context =
        behind(&::OSMesaCreateContextExt, "OSMesaCreateContextExt")(format, depthBits, stencilBits, accumBits, share);
    contexts = {format, depthBits, stencilBits, accumBits, share != nullptr, contexts.alive + (context ? 1 : 0)};
    return context;
}

extern "C" void OSMesaDestroyContext(OSMesaContext context)
{
    contexts.alive -= context ? 1 : 0;
    currentAtTheDestruction = QGLContext::currentContext();
    behind(&::OSMesaDestroyContext, "OSMesaDestroyContext")(context);
}

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::OffscreenImageMesa;

int maximum(GLint name)
{
    GLint value = 0;
    OSMesaGetIntegerv(name, &value);
    return value;
}

std::string failureOf(int width, int height)
{
    try {
        const OffscreenImageMesa image(width, height);
    } catch (const ExceptionBase& exception) {
        return exception.what();
    }
    return "";
}

std::string sizeMessage(int width, int height)
{
    return "The off-screen image size " + std::to_string(width) + "x" + std::to_string(height) +
           " exceeds the maximum allowed image size of " + std::to_string(maximum(OSMESA_MAX_WIDTH)) + "x" +
           std::to_string(maximum(OSMESA_MAX_HEIGHT)) +
           ". Try reducing the image size or supersampling to allow exporting to succeed.";
}

int valueWhileDrawing(OffscreenImageMesa& image, GLenum name)
{
    int value = -1;
    renderImage(ImageKind::Software, image, [&](const GLTable& gl, int, int) { value = gl.integer(name); });
    return value;
}

TEST(OffscreenImageMesa, TheMaximumSizeIsAcceptedInEachDirection)
{
    const int width = maximum(OSMESA_MAX_WIDTH);
    const int height = maximum(OSMESA_MAX_HEIGHT);
    ASSERT_GT(width, 1000);
    ASSERT_GT(height, 1000);
    EXPECT_EQ(failureOf(width, 1), "");
    EXPECT_EQ(failureOf(1, height), "");
    EXPECT_EQ(failureOf(width, height), "");
}

TEST(OffscreenImageMesa, AnImageOfTheMaximumWidthOrHeightIsDrawn)
{
    for (const QSize& size : {QSize(maximum(OSMESA_MAX_WIDTH), 3), QSize(3, maximum(OSMESA_MAX_HEIGHT))}) {
        OffscreenImageMesa image(size.width(), size.height());
        EXPECT_TRUE(
            renderImage(ImageKind::Software, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(image.toImage(), tiles(size.width(), size.height()));
    }
}

TEST(OffscreenImageMesa, OnePixelMoreInEitherDirectionIsRefusedWithBothSizes)
{
    const int width = maximum(OSMESA_MAX_WIDTH) + 1;
    const int height = maximum(OSMESA_MAX_HEIGHT) + 1;
    EXPECT_EQ(failureOf(width, 1), sizeMessage(width, 1));
    EXPECT_EQ(failureOf(1, height), sizeMessage(1, height));
    EXPECT_EQ(failureOf(width, height), sizeMessage(width, height));
}

TEST(OffscreenImageMesa, ASizeFarOverTheMaximumIsRefusedTheSameWay)
{
    const int huge = std::numeric_limits<int>::max();
    EXPECT_EQ(failureOf(huge, huge), sizeMessage(huge, huge));
    EXPECT_EQ(failureOf(65536, 65536), sizeMessage(65536, 65536));
    EXPECT_EQ(failureOf(huge, 1), sizeMessage(huge, 1));
    EXPECT_EQ(failureOf(1, huge), sizeMessage(1, huge));
    EXPECT_EQ(failureOf(huge, 0), sizeMessage(huge, 0));
    EXPECT_EQ(failureOf(-1, huge), sizeMessage(-1, huge));
}

TEST(OffscreenImageMesa, ANegativeSizeIsRefused)
{
    const int lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(failureOf(-3, 5), "The off-screen image size -3x5 is negative.");
    EXPECT_EQ(failureOf(5, -3), "The off-screen image size 5x-3 is negative.");
    EXPECT_NE(failureOf(-3, -5), "");
    EXPECT_NE(failureOf(lowest, lowest), "");
}

TEST(OffscreenImageMesa, AnEmptyImageExistsButCannotBeDrawn)
{
    for (const QSize& size : {QSize(0, 0), QSize(0, 9), QSize(9, 0)}) {
        OffscreenImageMesa image(size.width(), size.height());
        EXPECT_FALSE(image.getGLContext().setCurrentGL());
        EXPECT_TRUE(image.toImage().isNull());
        EXPECT_EQ(image.width(), size.width());
        EXPECT_EQ(image.height(), size.height());
    }
}

TEST(OffscreenImageMesa, AContextThatOSMesaRefusesShowsAsAFailureToBeCurrent)
{
    // OSMesa takes no negative sizes.
    const ImageSetting depth("DepthBufferSize", -1);
    OffscreenImageMesa image(10, 10);
    EXPECT_FALSE(image.getGLContext().setCurrentGL());
    EXPECT_FALSE(renderImage(ImageKind::Software, image, [](const GLTable&, int, int) { FAIL(); }));
    EXPECT_EQ(image.toImage().size(), QSize(10, 10));
}

TEST(OffscreenImageMesa, TheDepthIs32BitsUnlessConfigured)
{
    const OffscreenImageMesa image(10, 10);
    EXPECT_EQ(contexts.depthBits, 32);
    const ImageSetting depth("DepthBufferSize", 16);
    OffscreenImageMesa configured(10, 10);
    EXPECT_EQ(contexts.depthBits, 16);
    EXPECT_EQ(valueWhileDrawing(configured, GL_DEPTH_BITS), 16);
}

TEST(OffscreenImageMesa, TheContextIsRgbaWithoutStencilAndSharesWithNone)
{
    const OffscreenImageMesa image(10, 10);
    EXPECT_EQ(contexts.format, static_cast<GLenum>(GL_RGBA));
    EXPECT_EQ(contexts.stencilBits, 0);
    EXPECT_EQ(contexts.accumBits, 0);
    EXPECT_FALSE(contexts.shared);
}

TEST(OffscreenImageMesa, TheToolkitsContextIsOutOfTheWayWhileTheContextIsDestroyedAndThenCurrentAgain)
{
    QGLWidget widget;
    {
        const OffscreenImageMesa image(10, 10);
        widget.makeCurrent();
        currentAtTheDestruction = widget.context();
    }
    EXPECT_EQ(currentAtTheDestruction, nullptr);
    EXPECT_EQ(QGLContext::currentContext(), widget.context());
}

TEST(OffscreenImageMesa, EveryContextIsDestroyedWithItsImageAndARefusedSizeLeavesNone)
{
    const int before = contexts.alive;
    {
        const OffscreenImageMesa first(10, 10);
        const OffscreenImageMesa second(20, 10);
        EXPECT_EQ(contexts.alive, before + 2);
    }
    EXPECT_EQ(contexts.alive, before);
    EXPECT_NE(failureOf(maximum(OSMESA_MAX_WIDTH) + 1, 1), "");
    EXPECT_EQ(contexts.alive, before);
}

TEST(OffscreenImageMesa, TheConfiguredAccumulationBitsAreThere)
{
    OffscreenImageMesa image(10, 10);
    EXPECT_EQ(valueWhileDrawing(image, GL_ACCUM_RED_BITS), 0);
    const ImageSetting accumulation("MaxAccumBufferSize", 16);
    OffscreenImageMesa configured(10, 10);
    EXPECT_EQ(valueWhileDrawing(configured, GL_ACCUM_RED_BITS), 16);
}

TEST(OffscreenImageMesa, TheConfiguredSamplesDoNotMatter)
{
    const ImageSetting samples("MaxMultiSamples", 4);
    OffscreenImageMesa image(10, 10);
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
}

TEST(OffscreenImageMesa, ASettingThatCannotBeReadCountsAsNotSet)
{
    const ImageSetting depth("DepthBufferSize", 16);
    testing::EngineProbe::failStyleReads("Interface/OpenGLConfig/ImageRendering/DepthBufferSize");
    const OffscreenImageMesa image(10, 10);
    EXPECT_EQ(contexts.depthBits, 32);
    testing::EngineProbe::reset();
}

TEST(OffscreenImageMesa, EveryAnswerOfTheEngineBut0CountsAsRendered)
{
    OffscreenImageMesa image(8, 8);
    for (const int answer : {0, 1, 2, -1}) {
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return answer; });
        EXPECT_EQ(image.render(ExportRegion_Page), answer != 0) << answer;
    }
}

TEST(OffscreenImageMesa, ThePictureIsOpaqueWhateverAlphaWasDrawn)
{
    OffscreenImageMesa image(5, 4);
    renderImage(ImageKind::Software, image, [](const GLTable& gl, int, int) {
        gl.clearColor(0.2f, 0.4f, 0.6f, 0.0f);
        gl.clear(GL_COLOR_BUFFER_BIT);
        gl.finish();
    });
    const QImage picture = image.toImage();
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    EXPECT_EQ(picture.pixel(2, 2), QColor(51, 102, 153, 255).rgb());
    EXPECT_EQ(*reinterpret_cast<const QRgb*>(picture.constScanLine(3)), QColor(51, 102, 153, 255).rgb());
}

TEST(OffscreenImageMesa, TheFirstRowOfThePictureIsTheTopmost)
{
    OffscreenImageMesa image(8, 8);
    renderImage(ImageKind::Software, image, drawCorner);
    const QImage picture = image.toImage();
    EXPECT_EQ(picture.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(picture.pixel(0, 7), qRgb(255, 255, 255));
}

TEST(OffscreenImageMesa, ItIsDestroyedWithoutTakingAToolkitContextAway)
{
    QGLWidget widget;
    auto image = std::make_unique<OffscreenImageMesa>(8, 8);
    renderImage(ImageKind::Software, *image, drawCorner);
    widget.makeCurrent();
    image.reset();
    EXPECT_EQ(QGLContext::currentContext(), widget.context());
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

} // namespace
} // namespace velmora::test
