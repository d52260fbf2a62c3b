// What holds for every kind of off-screen image.

#include "chosen_toolkit/GLWidget.h"
#include "exception/ExceptionBase.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/offscreen/ToolkitLimits.h"

#include <gtest/gtest.h>
#include <vector>

namespace velmora::test {
namespace {

using namespace sdk::integration;

class OffscreenImages : public ::testing::TestWithParam<ImageKind> {
protected:
    void SetUp() override
    {
        const char* const reason = GetParam() == ImageKind::Pixmap ? whyNoPixmapsAreDrawn() : nullptr;
        if (reason)
            GTEST_SKIP() << reason;
    }

    ImageKind kind() const { return GetParam(); }

    /// An image that holds the tiles; to be given back to the service.
    OffscreenImageInterface* imageOfTiles(int width, int height, int variant = 0)
    {
        auto image = createImage(kind(), width, height);
        EXPECT_TRUE(
            renderImage(kind(), *image, [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, variant); }));
        return image.release();
    }

    services::OffscreenImageService m_service;
};

INSTANTIATE_TEST_SUITE_P(EveryKind, OffscreenImages, ::testing::ValuesIn(everyKind()),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(OffscreenImages, EveryPixelOfEverySizeArrivesWhereItWasDrawn)
{
    const QSize sizes[] = {QSize(1, 1),    QSize(3, 2),    QSize(7, 5),    QSize(33, 65),
                           QSize(101, 67), QSize(4096, 1), QSize(1, 4096), QSize(640, 480)};
    for (const int samples : {0, 4}) {
        const ImageSetting setting("MaxMultiSamples", samples);
        for (const QSize& size : sizes) {
            OffscreenImageInterface* const image = imageOfTiles(size.width(), size.height());
            EXPECT_EQ(readRows(m_service, *image), tiles(size.width(), size.height()))
                << size.width() << "x" << size.height() << ", " << samples << " samples";
            m_service.imageDestroy(image);
        }
    }
}

TEST_P(OffscreenImages, TheNearerSurfaceHidesTheFartherOne)
{
    for (const int samples : {0, 4}) {
        const ImageSetting setting("MaxMultiSamples", samples);
        auto image = createImage(kind(), 64, 48);
        EXPECT_TRUE(renderImage(kind(), *image, drawDepthTested));
        EXPECT_EQ(readRows(m_service, *image), depthTested(64, 48)) << samples << " samples";
        m_service.imageDestroy(image.release());
    }
}

TEST_P(OffscreenImages, TheSizeIsTheRequestedOneBeforeAnythingIsDrawn)
{
    const auto image = createImage(kind(), 123, 45);
    EXPECT_EQ(image->width(), 123);
    EXPECT_EQ(image->height(), 45);
}

TEST_P(OffscreenImages, RowsMayBeReadInAnyOrderAndAgain)
{
    OffscreenImageInterface* const image = imageOfTiles(21, 12);
    const QImage expected = tiles(21, 12);
    std::vector<unsigned char> red(21), green(21), blue(21);
    for (const int row : {11, 0, 5, 4, 5, 10, 1, 0}) {
        ASSERT_TRUE(m_service.imageGetRGBRow(image, row, red.data(), green.data(), blue.data()));
        for (std::size_t x = 0; x < 21; ++x)
            ASSERT_EQ(qRgb(red[x], green[x], blue[x]), expected.pixel(static_cast<int>(x), row)) << "row " << row;
    }
    m_service.imageDestroy(image);
}

TEST_P(OffscreenImages, ASecondImageAfterTheFirstIsDestroyedHasItsOwnPixels)
{
    OffscreenImageInterface* const first = imageOfTiles(30, 20, 0);
    EXPECT_EQ(readRows(m_service, *first), tiles(30, 20, 0));
    m_service.imageDestroy(first);
    OffscreenImageInterface* const second = imageOfTiles(17, 23, 1);
    EXPECT_EQ(readRows(m_service, *second), tiles(17, 23, 1));
    m_service.imageDestroy(second);
}

TEST_P(OffscreenImages, TwoImagesWithoutADestructionBetweenGiveTheFirstOnesPixels)
{
    OffscreenImageInterface* const first = imageOfTiles(30, 20, 0);
    OffscreenImageInterface* const second = imageOfTiles(30, 20, 1);
    EXPECT_EQ(readRows(m_service, *first), tiles(30, 20, 0));
    EXPECT_EQ(readRows(m_service, *second), tiles(30, 20, 0));
    m_service.imageDestroy(first);
    EXPECT_EQ(readRows(m_service, *second), tiles(30, 20, 1));
    m_service.imageDestroy(second);
}

TEST_P(OffscreenImages, TwoImagesLiveSideBySideAndKeepTheirPixels)
{
    OffscreenImageInterface* const first = imageOfTiles(30, 20, 0);
    OffscreenImageInterface* const second = imageOfTiles(40, 50, 1);
    EXPECT_EQ(readRows(m_service, *second), tiles(40, 50, 1));
    m_service.imageDestroy(second);
    EXPECT_EQ(readRows(m_service, *first), tiles(30, 20, 0));
    m_service.imageDestroy(first);
}

TEST_P(OffscreenImages, TheLastOfTwoDrawingsCounts)
{
    auto image = createImage(kind(), 25, 15);
    for (const int variant : {0, 1})
        renderImage(kind(), *image, [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, variant); });
    EXPECT_EQ(readRows(m_service, *image), tiles(25, 15, 1));
    m_service.imageDestroy(image.release());
}

TEST_P(OffscreenImages, TheEngineIsAskedForTheRegionWithTheImageItself)
{
    auto image = createImage(kind(), 8, 8);
    for (const ExportRegion_e region : {ExportRegion_CurrentFrame, ExportRegion_Page, ExportRegion_WorkArea}) {
        int asked = 0;
        const EngineDraws drawing([&](ExportRegion_e given, OffscreenImageInterface& target) {
            EXPECT_EQ(given, region);
            EXPECT_EQ(&target, image.get());
            return ++asked;
        });
        image->render(region);
        EXPECT_EQ(asked, 1);
    }
}

TEST_P(OffscreenImages, TheContextAnswersYesToBeingClearedAndHasNothingToSwap)
{
    auto image = createImage(kind(), 16, 16);
    const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface& target) {
        EXPECT_TRUE(target.getGLContext().setCurrentGL());
        drawTiles(glOf(kind()), 16, 16, 0);
        target.getGLContext().swapBuffers();
        EXPECT_TRUE(target.getGLContext().clearCurrentGL());
        EXPECT_EQ(&target.getGLContext(), &target.getGLContext());
        return 1;
    });
    EXPECT_TRUE(image->render(ExportRegion_Page));
    EXPECT_EQ(readRows(m_service, *image), tiles(16, 16));
    m_service.imageDestroy(image.release());
}

TEST_P(OffscreenImages, TheDrawingStartsWithoutPendingErrors)
{
    auto image = createImage(kind(), 16, 16);
    unsigned error = 1;
    renderImage(kind(), *image, [&](const GLTable& gl, int, int) { error = gl.getError(); });
    EXPECT_EQ(error, static_cast<unsigned>(GL_NO_ERROR));
}

TEST_P(OffscreenImages, ADrawingThatThrowsHalfWayLeavesEverythingUsable)
{
    toolkit::GLWidget onScreen;
    auto image = createImage(kind(), 40, 30);
    EXPECT_THROW(renderImage(kind(), *image,
                             [](const GLTable& gl, int w, int h) {
                                 drawCorner(gl, w, h);
                                 throw ExceptionBase("Half way.", false);
                             }),
                 ExceptionBase);
    m_service.imageDestroy(image.release());

    OffscreenImageInterface* const next = imageOfTiles(40, 30, 1);
    EXPECT_EQ(readRows(m_service, *next), tiles(40, 30, 1));
    m_service.imageDestroy(next);
    onScreen.makeCurrent();
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

TEST_P(OffscreenImages, AnImageMayBeDrawnAgainAfterADrawingThatThrew)
{
    auto image = createImage(kind(), 40, 30);
    const EngineDraws throwing(
        [](ExportRegion_e, OffscreenImageInterface&) -> int { throw ExceptionBase("At once.", false); });
    EXPECT_THROW(image->render(ExportRegion_Page), ExceptionBase);
    EXPECT_TRUE(renderImage(kind(), *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
    EXPECT_EQ(readRows(m_service, *image), tiles(40, 30));
    m_service.imageDestroy(image.release());
}

TEST_P(OffscreenImages, AnEmptyOrNegativeSizeNeverYieldsPixels)
{
    for (const QSize& size : {QSize(0, 0), QSize(0, 5), QSize(5, 0), QSize(-3, 5), QSize(5, -3), QSize(-3, -5)}) {
        OffscreenImageInterface* image = nullptr;
        try {
            image = m_service.imageCreate(size.width(), size.height(), strategyOf(kind()));
        } catch (const ExceptionBase&) {
            continue;
        }
        image->render(ExportRegion_Page);
        unsigned char plane = 0x5a;
        EXPECT_FALSE(m_service.imageGetRGBRow(image, 0, &plane, &plane, &plane));
        EXPECT_EQ(plane, 0x5a);
        m_service.imageDestroy(image);
    }
}

TEST_P(OffscreenImages, ThePictureIsThereAlsoWhenTheDrawingWasNotFinished)
{
    auto image = createImage(kind(), 40, 30);
    EXPECT_TRUE(renderImage(kind(), *image, [](const GLTable& gl, int w, int h) {
        GLTable unfinished = gl;
        unfinished.finish = [] {};
        drawTiles(unfinished, w, h, 2);
    }));
    EXPECT_EQ(readRows(m_service, *image), tiles(40, 30, 2));
    m_service.imageDestroy(image.release());
}

TEST_P(OffscreenImages, ADrawingThatFollowsOneThatLeftAnotherFramebufferBoundIsSeen)
{
    auto image = createImage(kind(), 40, 30);
    for (const int variant : {0, 1})
        EXPECT_TRUE(renderImage(kind(), *image, [&](const GLTable& gl, int w, int h) {
            drawTiles(gl, w, h, variant);
            gl.bindFramebuffer(GL_FRAMEBUFFER, 0);
        }));
    EXPECT_EQ(readRows(m_service, *image), tiles(40, 30, 1));
    m_service.imageDestroy(image.release());
}

class ReadBackThatFails : public OffscreenImages {
protected:
    /// After a picture that could be read, so that there is an old one to be mistaken for it.
    void expectNoPicture(const std::function<void(const GLTable&)>& spoil)
    {
        auto image = createImage(kind(), 64, 48);
        renderImage(kind(), *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
        EXPECT_EQ(readRows(m_service, *image), tiles(64, 48));
        m_service.imageDestroy(nullptr);
        renderImage(kind(), *image, [&](const GLTable& gl, int w, int h) {
            drawTiles(gl, w, h, 1);
            spoil(gl);
        });
        EXPECT_TRUE(readRows(m_service, *image).isNull());
        m_service.imageDestroy(image.release());
    }
};

INSTANTIATE_TEST_SUITE_P(EveryKind, ReadBackThatFails, ::testing::ValuesIn(everyKind()),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(ReadBackThatFails, IsNoPictureWhenThereIsNoBufferToRead)
{
    if (kind() == ImageKind::Software)
        GTEST_SKIP() << "OSMesa's memory is not read through OpenGL";
    for (const int samples : {0, 4}) {
        const ImageSetting setting("MaxMultiSamples", samples);
        expectNoPicture([](const GLTable& gl) { gl.readBuffer(GL_NONE); });
    }
}

TEST_P(ReadBackThatFails, IsNoPictureWhenAPrimitiveWasLeftOpen)
{
    for (const int samples : {0, 4}) {
        const ImageSetting setting("MaxMultiSamples", samples);
        expectNoPicture([](const GLTable& gl) { gl.begin(GL_TRIANGLES); });
    }
}

TEST_P(OffscreenImages, AnErrorThatTheDrawingLeavesDoesNotSpoilThePicture)
{
    auto image = createImage(kind(), 40, 30);
    EXPECT_TRUE(renderImage(kind(), *image, [](const GLTable& gl, int w, int h) {
        drawTiles(gl, w, h);
        gl.enable(GL_TRIANGLES);
    }));
    EXPECT_EQ(readRows(m_service, *image), tiles(40, 30));
    m_service.imageDestroy(image.release());
}

TEST_P(OffscreenImages, HowTheDrawingLeavesPixelsToBeReadDoesNotMatter)
{
    auto image = createImage(kind(), 41, 30);
    EXPECT_TRUE(renderImage(kind(), *image, [](const GLTable& gl, int w, int h) {
        drawTiles(gl, w, h);
        gl.pixelStorei(GL_PACK_ROW_LENGTH, 30);
        gl.pixelStorei(GL_PACK_SKIP_ROWS, 3);
        gl.pixelTransferf(GL_RED_SCALE, 0.5f);
    }));
    EXPECT_EQ(readRows(m_service, *image), tiles(41, 30));
    m_service.imageDestroy(image.release());
}

} // namespace
} // namespace velmora::test
