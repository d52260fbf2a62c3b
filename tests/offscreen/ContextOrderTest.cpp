// The toolkit's OpenGL and OSMesa share the driver's per-thread state. Whoever drew before, the next
// one's pixels must be right.

#include "integration/services/OffscreenImageService.h"
#include "integration/toolkit/CurrentContext.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

#include <QGLWidget>
#include <algorithm>
#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

constexpr int Width = 90;
constexpr int Height = 70;

class ContextOrder : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_onScreen.resize(Width, Height);
        ASSERT_TRUE(showAndWait(m_onScreen));
    }

    void expectOnScreen(int variant)
    {
        m_onScreen.makeCurrent();
        ASSERT_NE(glGetString(GL_VERSION), nullptr);
        drawTiles(screenGL(), Width, Height, variant);
        m_onScreen.swapBuffers();
        const bool shown = waitUntil(
            [&] { return differingFraction(grabFromScreen(m_onScreen), tiles(Width, Height, variant), 0) == 0.0; });
        EXPECT_TRUE(shown) << "on screen, variant " << variant;
    }

    void expectOffscreen(ImageKind kind, int variant)
    {
        auto image = createImage(kind, Width, Height);
        renderImage(kind, *image, [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, variant); });
        EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, variant))
            << nameOf(kind) << ", variant " << variant;
        m_service.imageDestroy(image.release());
    }

    void expectTurn(int who, int variant)
    {
        const ImageKind kinds[] = {ImageKind::PixelBuffer, ImageKind::Pixmap, ImageKind::Software};
        if (who == 3)
            expectOnScreen(variant);
        else
            expectOffscreen(kinds[who], variant);
    }

    QGLWidget m_onScreen;
    services::OffscreenImageService m_service;
};

TEST_F(ContextOrder, ScreenPixelBufferPixmapAndSoftwareDrawRightInEveryOrder)
{
    int order[] = {0, 1, 2, 3};
    int variant = 0;
    do
        for (const int who : order)
            expectTurn(who, variant++);
    while (std::next_permutation(order, order + 4) && !HasFailure());
    EXPECT_EQ(variant, 24 * 4);
}

TEST_F(ContextOrder, SoftwareDrawsRightWhileTheScreensContextIsCurrentAndBack)
{
    auto image = createImage(ImageKind::Software, Width, Height);
    for (int turn = 0; turn < 4; ++turn) {
        expectOnScreen(turn);
        renderImage(ImageKind::Software, *image,
                    [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, turn + 1); });
        expectOnScreen(turn + 2);
        EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, turn + 1));
        m_service.imageDestroy(nullptr);
    }
    m_service.imageDestroy(image.release());
}

TEST_F(ContextOrder, AnApplicationThatPaintsInTheMiddleOfASoftwareDrawingSpoilsNothing)
{
    auto image = createImage(ImageKind::Software, Width, Height);
    const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface& target) {
        const GLTable& gl = softwareGL();
        EXPECT_TRUE(target.getGLContext().setCurrentGL());
        drawCorner(gl, Width, Height);
        expectOnScreen(3);
        EXPECT_TRUE(target.getGLContext().setCurrentGL());
        drawTiles(gl, Width, Height, 4);
        return 1;
    });
    EXPECT_TRUE(image->render(ExportRegion_Page));
    EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, 4));
    expectOnScreen(5);
    m_service.imageDestroy(image.release());
}

TEST_F(ContextOrder, AnApplicationThatPaintsAtTheEndOfADrawingSpoilsNoKindOfImage)
{
    for (const ImageKind kind : {ImageKind::PixelBuffer, ImageKind::Pixmap, ImageKind::Software}) {
        auto image = createImage(kind, Width, Height);
        renderImage(kind, *image, [&](const GLTable& gl, int w, int h) {
            drawTiles(gl, w, h, 4);
            expectOnScreen(3);
        });
        EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, 4)) << nameOf(kind);
        m_service.imageDestroy(image.release());
    }
}

TEST_F(ContextOrder, ASoftwareImageDestroyedWhileTheScreensContextIsCurrentLeavesThatInWorkingOrder)
{
    auto image = createImage(ImageKind::Software, Width, Height);
    renderImage(ImageKind::Software, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    m_onScreen.makeCurrent();
    m_service.imageDestroy(image.release());
    ASSERT_NE(glGetString(GL_VERSION), nullptr);
    drawTiles(screenGL(), Width, Height, 7);
    m_onScreen.swapBuffers();
    EXPECT_TRUE(
        waitUntil([&] { return differingFraction(grabFromScreen(m_onScreen), tiles(Width, Height, 7), 0) == 0.0; }));
}

TEST_F(ContextOrder, ASoftwareImageDestroyedWhileItsOwnContextIsCurrentSpoilsNoOther)
{
    auto first = createImage(ImageKind::Software, Width, Height);
    auto second = createImage(ImageKind::Software, Width, Height);
    ASSERT_TRUE(first->getGLContext().setCurrentGL());
    m_service.imageDestroy(first.release());
    renderImage(ImageKind::Software, *second, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, 2); });
    EXPECT_EQ(readRows(m_service, *second), tiles(Width, Height, 2));
    expectOnScreen(1);
    m_service.imageDestroy(second.release());
}

TEST_F(ContextOrder, SoftwareReleasesTheToolkitsContextFirst)
{
    m_onScreen.makeCurrent();
    auto image = createImage(ImageKind::Software, 4, 4);
    EXPECT_EQ(QGLContext::currentContext(), m_onScreen.context());
    EXPECT_TRUE(image->getGLContext().setCurrentGL());
    EXPECT_EQ(QGLContext::currentContext(), nullptr);
}

TEST_F(ContextOrder, AKeeperBringsBackTheContextThatWasCurrentOrNone)
{
    QGLWidget other;
    m_onScreen.makeCurrent();
    {
        const toolkit::CurrentContextKeeper keeper;
        other.makeCurrent();
    }
    EXPECT_EQ(QGLContext::currentContext(), m_onScreen.context());
    toolkit::releaseCurrentContext();
    EXPECT_EQ(QGLContext::currentContext(), nullptr);
    {
        const toolkit::CurrentContextKeeper keeper;
        other.makeCurrent();
    }
    EXPECT_EQ(QGLContext::currentContext(), nullptr);
}

} // namespace
} // namespace velmora::test
