#include "integration/offscreen/OffscreenImagePixmap.h"
#include "chosen_toolkit/GLWidget.h"
#include "exception/ExceptionBase.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/GLContextInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/offscreen/ToolkitLimits.h"
#include "tests/support/Pixels.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>
#include <limits>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using intern::OffscreenImagePixmap;

TEST(OffscreenImagePixmap, ThereIsNoPictureBeforeItIsRendered)
{
    OffscreenImagePixmap image(20, 10);
    EXPECT_TRUE(image.toImage().isNull());
    services::OffscreenImageService service;
    unsigned char plane[20];
    EXPECT_FALSE(service.imageGetRGBRow(&image, 0, plane, plane, plane));
}

TEST(OffscreenImagePixmap, TheEnginesAnswerDoesNotMatter)
{
    if (const char* const reason = whyNoPixmapsAreDrawn())
        GTEST_SKIP() << reason;
    for (const int answer : {0, 1, 2, -1}) {
        OffscreenImagePixmap image(8, 8);
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return answer; });
        EXPECT_TRUE(image.render(ExportRegion_Page)) << answer;
    }
}

TEST(OffscreenImagePixmap, ASizeThatCannotBeRenderedFailsLeavesNoPictureAndDrawsNothing)
{
    const int huge = std::numeric_limits<int>::max();
    for (const QSize& size :
         {QSize(0, 0), QSize(-1, 4), QSize(4, -1), QSize(100000, 4), QSize(4, 100000), QSize(huge, huge)}) {
        int asked = 0;
        const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) { return ++asked; });
        OffscreenImagePixmap image(size.width(), size.height());
        EXPECT_FALSE(image.render(ExportRegion_Page)) << size.width() << "x" << size.height();
        EXPECT_TRUE(image.toImage().isNull());
        EXPECT_EQ(image.width(), size.width());
        EXPECT_EQ(image.height(), size.height());
        EXPECT_EQ(asked, 0);
    }
}

TEST(OffscreenImagePixmap, TheWidgetsContextIsCurrentWhileTheEngineDraws)
{
    if (const char* const reason = whyNoPixmapsAreDrawn())
        GTEST_SKIP() << reason;
    OffscreenImagePixmap image(8, 8);
    bool current = false;
    const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface& target) {
        current = toolkit::GLContext::currentContext() != nullptr && glGetString(GL_VERSION) != nullptr;
        return target.getGLContext().setCurrentGL() ? 1 : 0;
    });
    image.render(ExportRegion_Page);
    EXPECT_TRUE(current);
}

TEST(OffscreenImagePixmap, NoWidgetIsLeftAndNoneIsShown)
{
    const int before = QApplication::allWidgets().size();
    OffscreenImagePixmap image(8, 8);
    const EngineDraws drawing([&](ExportRegion_e, OffscreenImageInterface&) {
        EXPECT_LE(QApplication::allWidgets().size(), before + 1); // not every toolkit needs one
        for (const QWidget* const widget : QApplication::allWidgets())
            EXPECT_FALSE(widget->isVisible());
        return 1;
    });
    image.render(ExportRegion_Page);
    EXPECT_EQ(QApplication::allWidgets().size(), before);
}

TEST(OffscreenImagePixmap, ADrawingThatThrowsLeavesThePictureOfBefore)
{
    if (const char* const reason = whyNoPixmapsAreDrawn())
        GTEST_SKIP() << reason;
    OffscreenImagePixmap image(20, 10);
    renderImage(ImageKind::Pixmap, image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
    try {
        renderImage(ImageKind::Pixmap, image, [](const GLTable& gl, int w, int h) {
            drawCorner(gl, w, h);
            throw ExceptionBase("Half way.", false);
        });
        FAIL() << "the exception was lost";
    } catch (const ExceptionBase& exception) {
        EXPECT_STREQ(exception.what(), "Half way.");
    }
    EXPECT_EQ(differingFraction(image.toImage(), tiles(20, 10), 0), 0.0);
}

} // namespace
} // namespace velmora::test
