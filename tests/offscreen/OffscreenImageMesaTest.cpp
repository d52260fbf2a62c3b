#include "integration/offscreen/OffscreenImageMesa.h"
#include "chosen_toolkit/GLWidget.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"

#include <QColor>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

using velmora::sdk::integration::toolkit::GLContext;

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
const GLContext* currentAtTheDestruction = nullptr; // the toolkit's

using OSMesaContext = velmora::sdk::integration::intern::OSMesaLibrary::Context;

template <typename Function>
Function behind(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(dlopen("libOSMesa.so.8", RTLD_LAZY), name));
}

} // namespace

// A program's own definitions come before those of the library, which they go on to.
#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED OSMesaContext OSMesaCreateContextExt(GLenum format, GLint depthBits, GLint stencilBits, GLint accumBits,
                                              OSMesaContext share)
{
    OSMesaContext const context =
        behind(&::OSMesaCreateContextExt, "OSMesaCreateContextExt")(format, depthBits, stencilBits, accumBits, share);
    contexts = {format, depthBits, stencilBits, accumBits, share != nullptr, contexts.alive + (context ? 1 : 0)};
    return context;
}

EXPORTED void OSMesaDestroyContext(OSMesaContext context)
{
    contexts.alive -= context ? 1 : 0;
    currentAtTheDestruction = GLContext::currentContext();
    behind(&::OSMesaDestroyContext, "OSMesaDestroyContext")(context);
}

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::OSMesaLibrary;

/// Where there is an OSMesa.
class OffscreenImageMesa : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!intern::osMesa())
            GTEST_SKIP() << "OSMesa is not installed";
    }
};

/// The image with the one library that there is.
class Image : public intern::OffscreenImageMesa {
public:
    Image(int width, int height) : intern::OffscreenImageMesa(*intern::osMesa(), width, height) {}
};

int maximum(int name)
{
    int value = 0;
    intern::osMesa()->getIntegerv(name, &value);
    return value;
}

std::string failureOf(int width, int height)
{
    try {
        const Image image(width, height);
    } catch (const ExceptionBase& exception) {
        return exception.what();
    }
    return "";
}

std::string sizeMessage(int width, int height)
{
    return "The off-screen image size " + std::to_string(width) + "x" + std::to_string(height) +
           " exceeds the maximum allowed image size of " + std::to_string(maximum(OSMesaLibrary::MaxWidth)) + "x" +
           std::to_string(maximum(OSMesaLibrary::MaxHeight)) +
           ". Try reducing the image size or supersampling to allow exporting to succeed.";
}

int valueWhileDrawing(Image& image, GLenum name)
{
    int value = -1;
    renderImage(ImageKind::Software, image, [&](const GLTable& gl, int, int) { value = gl.integer(name); });
    return value;
}

TEST_F(OffscreenImageMesa, TheMaximumSizeIsAcceptedInEachDirection)
{
    const int width = maximum(OSMesaLibrary::MaxWidth);
    const int height = maximum(OSMesaLibrary::MaxHeight);
    ASSERT_GT(width, 1000);
    ASSERT_GT(height, 1000);
    EXPECT_EQ(failureOf(width, 1), "");
    EXPECT_EQ(failureOf(1, height), "");
    EXPECT_EQ(failureOf(width, height), "");
}

TEST_F(OffscreenImageMesa, AnImageOfTheMaximumWidthOrHeightIsDrawn)
{
    for (const QSize& size :
         {QSize(maximum(OSMesaLibrary::MaxWidth), 3), QSize(3, maximum(OSMesaLibrary::MaxHeight))}) {
        Image image(size.width(), size.height());
        EXPECT_TRUE(
            renderImage(ImageKind::Software, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(image.toImage(), tiles(size.width(), size.height()));
    }
}

TEST_F(OffscreenImageMesa, OnePixelMoreInEitherDirectionIsRefusedWithBothSizes)
{
    const int width = maximum(OSMesaLibrary::MaxWidth) + 1;
    const int height = maximum(OSMesaLibrary::MaxHeight) + 1;
    EXPECT_EQ(failureOf(width, 1), sizeMessage(width, 1));
    EXPECT_EQ(failureOf(1, height), sizeMessage(1, height));
    EXPECT_EQ(failureOf(width, height), sizeMessage(width, height));
}

TEST_F(OffscreenImageMesa, ASizeFarOverTheMaximumIsRefusedTheSameWay)
{
    const int huge = std::numeric_limits<int>::max();
    EXPECT_EQ(failureOf(huge, huge), sizeMessage(huge, huge));
    EXPECT_EQ(failureOf(65536, 65536), sizeMessage(65536, 65536));
    EXPECT_EQ(failureOf(huge, 1), sizeMessage(huge, 1));
    EXPECT_EQ(failureOf(1, huge), sizeMessage(1, huge));
    EXPECT_EQ(failureOf(huge, 0), sizeMessage(huge, 0));
    EXPECT_EQ(failureOf(-1, huge), sizeMessage(-1, huge));
}

TEST_F(OffscreenImageMesa, ANegativeSizeIsRefused)
{
    const int lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(failureOf(-3, 5), "The off-screen image size -3x5 is negative.");
    EXPECT_EQ(failureOf(5, -3), "The off-screen image size 5x-3 is negative.");
    EXPECT_NE(failureOf(-3, -5), "");
    EXPECT_NE(failureOf(lowest, lowest), "");
}

TEST_F(OffscreenImageMesa, AnEmptyImageExistsButCannotBeDrawn)
{
    for (const QSize& size : {QSize(0, 0), QSize(0, 9), QSize(9, 0)}) {
        Image image(size.width(), size.height());
        EXPECT_FALSE(image.getGLContext().setCurrentGL());
        EXPECT_TRUE(image.toImage().isNull());
        EXPECT_EQ(image.width(), size.width());
        EXPECT_EQ(image.height(), size.height());
    }
}

TEST_F(OffscreenImageMesa, AContextThatOSMesaRefusesShowsAsAFailureToBeCurrent)
{
    // OSMesa takes no negative sizes.
    const ImageSetting depth("DepthBufferSize", -1);
    Image image(10, 10);
    EXPECT_FALSE(image.getGLContext().setCurrentGL());
    EXPECT_FALSE(renderImage(ImageKind::Software, image, [](const GLTable&, int, int) { FAIL(); }));
    EXPECT_EQ(image.toImage().size(), QSize(10, 10));
}

TEST_F(OffscreenImageMesa, TheDepthIs32BitsUnlessConfigured)
{
    const Image image(10, 10);
    EXPECT_EQ(contexts.depthBits, 32);
    const ImageSetting depth("DepthBufferSize", 16);
    Image configured(10, 10);
    EXPECT_EQ(contexts.depthBits, 16);
    EXPECT_EQ(valueWhileDrawing(configured, GL_DEPTH_BITS), 16);
}

TEST_F(OffscreenImageMesa, TheContextIsRgbaWithoutStencilAndSharesWithNone)
{
    const Image image(10, 10);
    EXPECT_EQ(contexts.format, static_cast<GLenum>(GL_RGBA));
    EXPECT_EQ(contexts.stencilBits, 0);
    EXPECT_EQ(contexts.accumBits, 0);
    EXPECT_FALSE(contexts.shared);
}

TEST_F(OffscreenImageMesa, TheToolkitsContextIsOutOfTheWayWhileTheContextIsDestroyedAndThenCurrentAgain)
{
    toolkit::GLWidget widget;
    {
        const Image image(10, 10);
        widget.makeCurrent();
        currentAtTheDestruction = widget.context();
    }
    EXPECT_EQ(currentAtTheDestruction, nullptr);
    EXPECT_EQ(GLContext::currentContext(), widget.context());
}

TEST_F(OffscreenImageMesa, EveryContextIsDestroyedWithItsImageAndARefusedSizeLeavesNone)
{
    const int before = contexts.alive;
    {
        const Image first(10, 10);
        const Image second(20, 10);
        EXPECT_EQ(contexts.alive, before + 2);
    }
    EXPECT_EQ(contexts.alive, before);
    EXPECT_NE(failureOf(maximum(OSMesaLibrary::MaxWidth) + 1, 1), "");
    EXPECT_EQ(contexts.alive, before);
}

TEST_F(OffscreenImageMesa, TheConfiguredAccumulationBitsAreThere)
{
    Image image(10, 10);
    EXPECT_EQ(valueWhileDrawing(image, GL_ACCUM_RED_BITS), 0);
    const ImageSetting accumulation("MaxAccumBufferSize", 16);
    Image configured(10, 10);
    EXPECT_EQ(valueWhileDrawing(configured, GL_ACCUM_RED_BITS), 16);
}

TEST_F(OffscreenImageMesa, TheConfiguredSamplesDoNotMatter)
{
    const ImageSetting samples("MaxMultiSamples", 4);
    Image image(10, 10);
    EXPECT_EQ(valueWhileDrawing(image, GL_SAMPLES), 0);
}

TEST_F(OffscreenImageMesa, ASettingThatCannotBeReadCountsAsNotSet)
{
    const ImageSetting depth("DepthBufferSize", 16);
    testing::EngineProbe::failStyleReads("Interface/OpenGLConfig/ImageRendering/DepthBufferSize");
    const Image image(10, 10);
    EXPECT_EQ(contexts.depthBits, 32);
    testing::EngineProbe::reset();
}

TEST_F(OffscreenImageMesa, EveryAnswerOfTheEngineBut0CountsAsRendered)
{
    Image image(8, 8);
    for (const int answer : {0, 1, 2, -1}) {
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return answer; });
        EXPECT_EQ(image.render(ExportRegion_Page), answer != 0) << answer;
    }
}

TEST_F(OffscreenImageMesa, ThePictureIsOpaqueWhateverAlphaWasDrawn)
{
    Image image(5, 4);
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

TEST_F(OffscreenImageMesa, TheFirstRowOfThePictureIsTheTopmost)
{
    Image image(8, 8);
    renderImage(ImageKind::Software, image, drawCorner);
    const QImage picture = image.toImage();
    EXPECT_EQ(picture.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(picture.pixel(0, 7), qRgb(255, 255, 255));
}

TEST_F(OffscreenImageMesa, ItIsDestroyedWithoutTakingAToolkitContextAway)
{
    toolkit::GLWidget widget;
    auto image = std::make_unique<Image>(8, 8);
    renderImage(ImageKind::Software, *image, drawCorner);
    widget.makeCurrent();
    image.reset();
    EXPECT_EQ(GLContext::currentContext(), widget.context());
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

/// For its life, the process gets no more memory than it has and a little.
class NoMoreMemory {
public:
    NoMoreMemory()
    {
        getrlimit(RLIMIT_AS, &m_before);
        long pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        constexpr rlim_t Little = rlim_t{64} << 20;
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + Little;
        setrlimit(RLIMIT_AS, &limit);
    }
    ~NoMoreMemory() { setrlimit(RLIMIT_AS, &m_before); }
    NoMoreMemory(const NoMoreMemory&) = delete;
    NoMoreMemory& operator=(const NoMoreMemory&) = delete;

private:
    rlimit m_before = {};
};

TEST_F(OffscreenImageMesa, TheConfigurationIsReadInTheOrderThatIsStated)
{
    testing::EngineProbe::startLog();
    const Image image(10, 10);
    const std::string section = "styleGet Interface/OpenGLConfig/ImageRendering/";
    EXPECT_THAT(testing::EngineProbe::log(),
                ::testing::ElementsAre(section + "DepthBufferSize", section + "MaxAccumBufferSize"));
    testing::EngineProbe::reset();
}

TEST_F(OffscreenImageMesa, WithoutMemoryTheMessageSaysHowMuchAndWhatHelps)
{
    const NoMoreMemory limit;
    EXPECT_EQ(failureOf(16000, 8000),
              "There is no memory for an off-screen image of 16000x8000 pixels, 489 MB. Try reducing the image size or "
              "supersampling to allow exporting to succeed.");
}

TEST_F(OffscreenImageMesa, TheConfigurationIsReadBeforeMemoryIsAskedFor)
{
    const NoMoreMemory limit;
    testing::EngineProbe::throwAt("ArgList");
    const std::string failure = failureOf(16000, 8000);
    testing::EngineProbe::reset();
    EXPECT_NE(failure, "");
    EXPECT_EQ(failure.find("memory"), std::string::npos) << failure;
}

TEST_F(OffscreenImageMesa, WhatWasNeverDrawnIsBlackAndNotWhatTheMemoryHeldBefore)
{
    Image image(200, 100);
    const QImage picture = image.toImage();
    EXPECT_EQ(countColor(picture, qRgb(0, 0, 0)), 200 * 100);
}

} // namespace
} // namespace velmora::test
