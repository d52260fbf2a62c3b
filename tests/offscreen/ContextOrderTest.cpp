// The toolkit's OpenGL, EGL and OSMesa share the driver's per-thread state. Whichever drew before, the next
// one's pixels must be right.

#include "chosen_toolkit/GLWidget.h"
#include "integration/services/OffscreenImageService.h"
#include "integration/toolkit/CurrentContext.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/HostContext.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

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
        const std::vector<ImageKind> kinds = drawnKinds();
        if (who == static_cast<int>(kinds.size()))
            expectOnScreen(variant);
        else
            expectOffscreen(kinds[static_cast<std::size_t>(who)], variant);
    }

    toolkit::GLWidget m_onScreen;
    services::OffscreenImageService m_service;
};

TEST_F(ContextOrder, TheScreenAndEveryKindOfImageDrawRightAfterEachOther)
{
    const int count = static_cast<int>(drawnKinds().size()) + 1;
    int variant = 0;
    for (int before = 0; before < count && !HasFailure(); ++before)
        for (int after = 0; after < count; ++after) {
            SCOPED_TRACE(std::to_string(before) + " then " + std::to_string(after));
            expectTurn(before, variant++);
            expectTurn(after, variant++);
        }
}

TEST_F(ContextOrder, TheScreenPixelBufferPixmapAndSoftwareDrawRightInEveryOrder)
{
    const int screen = static_cast<int>(drawnKinds().size());
    int order[] = {0, 1, std::max(2, screen - 2), screen};
    std::sort(order, order + 4);
    int variant = 0;
    do
        for (const int who : order)
            expectTurn(who, variant++);
    while (std::next_permutation(order, order + 4) && !HasFailure());
    EXPECT_EQ(variant, 24 * 4);
}

/// The kinds whose context the toolkit does not know of.
class ForeignContext : public ContextOrder, public ::testing::WithParamInterface<ImageKind> {
protected:
    /// With none of the toolkit's, which would have the host's released with its own.
    void makeOnlyTheHostsCurrent()
    {
        toolkit::releaseCurrentContext();
        ASSERT_TRUE(m_host.makeCurrent());
    }

    const HostContext m_host;
};

INSTANTIATE_TEST_SUITE_P(Of, ForeignContext, ::testing::ValuesIn(kindsWithoutDisplay()),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(ForeignContext, DrawsRightWhileTheScreensContextIsCurrentAndBack)
{
    auto image = createImage(GetParam(), Width, Height);
    for (int turn = 0; turn < 4; ++turn) {
        expectOnScreen(turn);
        renderImage(GetParam(), *image, [&](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, turn + 1); });
        expectOnScreen(turn + 2);
        EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, turn + 1));
        m_service.imageDestroy(nullptr);
    }
    m_service.imageDestroy(image.release());
}

TEST_P(ForeignContext, IsNotSpoiledByAnApplicationThatPaintsInTheMiddleOfTheDrawing)
{
    auto image = createImage(GetParam(), Width, Height);
    const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface& target) {
        const GLTable& gl = glOf(GetParam());
        EXPECT_TRUE(target.getGLContext().setCurrentGL());
        drawCorner(gl, Width, Height);
        EXPECT_TRUE(target.getGLContext().clearCurrentGL());
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

TEST_P(ForeignContext, LeavesNothingOfTheToolkitCurrentWhileItIs)
{
    m_onScreen.makeCurrent();
    auto image = createImage(GetParam(), 4, 4);
    EXPECT_EQ(toolkit::GLContext::currentContext(), m_onScreen.context());
    EXPECT_TRUE(image->getGLContext().setCurrentGL());
    EXPECT_EQ(toolkit::GLContext::currentContext(), nullptr);
}

TEST_P(ForeignContext, IsReadAndDestroyedWithoutTakingTheScreensContextAway)
{
    auto image = createImage(GetParam(), Width, Height);
    renderImage(GetParam(), *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    m_onScreen.makeCurrent();
    EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height));
    EXPECT_EQ(toolkit::GLContext::currentContext(), m_onScreen.context());
    m_service.imageDestroy(image.release());
    EXPECT_EQ(toolkit::GLContext::currentContext(), m_onScreen.context());
    ASSERT_NE(glGetString(GL_VERSION), nullptr);
    drawTiles(screenGL(), Width, Height, 7);
    m_onScreen.swapBuffers();
    EXPECT_TRUE(
        waitUntil([&] { return differingFraction(grabFromScreen(m_onScreen), tiles(Width, Height, 7), 0) == 0.0; }));
}

TEST_P(ForeignContext, IsDestroyedWhileItIsCurrentAndSpoilsNoOther)
{
    auto first = createImage(GetParam(), Width, Height);
    auto second = createImage(GetParam(), Width, Height);
    ASSERT_TRUE(first->getGLContext().setCurrentGL());
    m_service.imageDestroy(first.release());
    renderImage(GetParam(), *second, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h, 2); });
    EXPECT_EQ(readRows(m_service, *second), tiles(Width, Height, 2));
    expectOnScreen(1);
    m_service.imageDestroy(second.release());
}

TEST_P(ForeignContext, LetsAContextThatTheHostMadeItselfBeMadeCurrentAgain)
{
    for (int turn = 0; turn < 3; ++turn) {
        makeOnlyTheHostsCurrent();
        expectOffscreen(GetParam(), turn);
        ASSERT_TRUE(m_host.makeCurrent());
        EXPECT_TRUE(m_host.draws(turn * 100)) << "after image " << turn;
    }
    m_host.release();
    expectOnScreen(1);
}

TEST_P(ForeignContext, TakesTheThreadOverFromAContextThatTheHostMadeItself)
{
    auto image = createImage(GetParam(), Width, Height);
    makeOnlyTheHostsCurrent();
    ASSERT_TRUE(image->getGLContext().setCurrentGL());
    EXPECT_FALSE(m_host.isCurrent());
    drawTiles(glOf(GetParam()), Width, Height, 3);
    EXPECT_TRUE(image->getGLContext().clearCurrentGL());
    ASSERT_TRUE(m_host.makeCurrent());
    EXPECT_TRUE(m_host.draws(150));
    m_service.imageDestroy(image.release());
}

TEST_P(ForeignContext, IsReadAndDestroyedWithoutTakingTheHostsOwnContextAway)
{
    auto image = createImage(GetParam(), Width, Height);
    renderImage(GetParam(), *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    makeOnlyTheHostsCurrent();
    EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height));
    EXPECT_TRUE(m_host.isCurrent());
    m_service.imageDestroy(image.release());
    EXPECT_TRUE(m_host.isCurrent());
    EXPECT_TRUE(m_host.draws(50));
}

TEST_F(ContextOrder, AnApplicationThatPaintsAtTheEndOfADrawingSpoilsNoKindOfImage)
{
    for (const ImageKind kind : drawnKinds()) {
        auto image = createImage(kind, Width, Height);
        renderImage(kind, *image, [&](const GLTable& gl, int w, int h) {
            drawTiles(gl, w, h, 4);
            image->getGLContext().clearCurrentGL();
            expectOnScreen(3);
        });
        EXPECT_EQ(readRows(m_service, *image), tiles(Width, Height, 4)) << nameOf(kind);
        m_service.imageDestroy(image.release());
    }
}

TEST_F(ContextOrder, AKeeperBringsBackTheContextThatWasCurrentOrNone)
{
    toolkit::GLWidget other;
    m_onScreen.makeCurrent();
    {
        const toolkit::CurrentContextKeeper keeper;
        other.makeCurrent();
    }
    EXPECT_EQ(toolkit::GLContext::currentContext(), m_onScreen.context());
    toolkit::releaseCurrentContext();
    EXPECT_EQ(toolkit::GLContext::currentContext(), nullptr);
    {
        const toolkit::CurrentContextKeeper keeper;
        other.makeCurrent();
    }
    EXPECT_EQ(toolkit::GLContext::currentContext(), nullptr);
}

} // namespace
} // namespace velmora::test
