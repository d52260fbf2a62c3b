#include "integration/glarea/GLDrawArea.h"

#include "chosen_toolkit/GLWidget.h"
#include "exception/ExceptionBase.h"
#include "integration/toolkit/ContextFacts.h"
#include "testing/EngineProbe.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/QtWarnings.h"
#include "tests/support/Wait.h"

#include <QPaintEvent>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace velmora::sdk::integration;
using namespace velmora::test;
using velmora::testing::EngineProbe;

TEST_F(DrawArea, IsFoundByItsNameItsClassAndItsInterface)
{
    GLDrawArea area;
    EXPECT_EQ(area.objectName(), QLatin1String("GLDrawArea"));
    EXPECT_STREQ(area.metaObject()->className(), "velmora::sdk::integration::GLDrawArea");
    QObject* const object = &area;
    EXPECT_EQ(qobject_cast<GLDrawAreaInterface*>(object), static_cast<GLDrawAreaInterface*>(&area));
    EXPECT_EQ(object->qt_metacast("GLDrawAreaInterface"), static_cast<void*>(static_cast<GLDrawAreaInterface*>(&area)));
    EXPECT_EQ(object->qt_metacast(toolkit::GLWidget::staticMetaObject.className()),
              static_cast<void*>(static_cast<toolkit::GLWidget*>(&area)));
    EXPECT_EQ(object->qt_metacast("Something else"), nullptr);
}

TEST_F(DrawArea, IsSetUpForTheEngineToPaint)
{
    ToolkitWatch area;
    EXPECT_TRUE(area.isValidWidget());
    EXPECT_EQ(area.focusPolicy(), Qt::StrongFocus);
    EXPECT_TRUE(area.hasMouseTracking());
    EXPECT_FALSE(area.autoBufferSwap());
    EXPECT_FALSE(area.autoFillBackground());
}

TEST_F(DrawArea, ItsDisabledAndInactiveColoursAreTheActiveOnes)
{
    GLDrawArea area;
    for (int number = 0; number < QPalette::NColorRoles; ++number) {
        const QPalette::ColorRole role = static_cast<QPalette::ColorRole>(number);
        EXPECT_EQ(area.palette().brush(QPalette::Disabled, role), area.palette().brush(QPalette::Active, role));
        EXPECT_EQ(area.palette().brush(QPalette::Inactive, role), area.palette().brush(QPalette::Active, role));
    }
}

TEST_F(DrawArea, TheFirstPaintReportsASizeChangeAndTheNextDoesNot)
{
    GLDrawArea area;
    area.resize(80, 60);
    Painter painter(area, Green);
    std::vector<bool> emitted;
    area.connectDrawAreaExposed([&](bool sizeChanged) { emitted.push_back(sizeChanged); });
    ASSERT_TRUE(showAndWait(area));
    ASSERT_FALSE(painter.exposures.empty());
    EXPECT_TRUE(painter.exposures.front());

    // A window that has just been shown may not be exposed yet, and does not repaint until then.
    const size_t before = painter.exposures.size();
    ASSERT_TRUE(waitUntil([&] {
        area.repaint();
        return painter.exposures.size() > before;
    }));
    EXPECT_FALSE(painter.exposures.back());
    EXPECT_EQ(emitted, painter.exposures);
}

TEST_F(DrawArea, APaintAfterAResizeReportsTheSizeChange)
{
    GLDrawArea area;
    area.resize(80, 60);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    painter.exposures.clear();
    area.resize(120, 90);
    // A window manager may answer late, and expose the old size before.
    const auto hasNewSize = [&area] {
        int width = 0;
        int height = 0;
        area.getSize(&width, &height);
        return QSize(width, height) == inScreenPixels(area, QSize(120, 90));
    };
    const std::vector<bool>& exposures = painter.exposures;
    EXPECT_TRUE(waitUntil(
        [&] { return hasNewSize() && std::find(exposures.begin(), exposures.end(), true) != exposures.end(); }));
    EXPECT_TRUE(comesToShow(area, Green));
}

namespace {

/// Painted by the toolkit's own handler.
class GreenWithoutThePage : public GLDrawArea {
protected:
    void paintGL() override
    {
        glClearColor(0, 1, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }
};

} // namespace

TEST_F(DrawArea, WithoutAPageWhatTheToolkitPaintsComesToTheScreen)
{
    EngineProbe::setPageTrackerState(0);
    GreenWithoutThePage area;
    ASSERT_TRUE(showAndWait(area));
    EXPECT_TRUE(comesToShow(area, Green));
}

TEST_F(DrawArea, WhileTheEngineOwnsThePictureTheToolkitNeitherPaintsNorResizes)
{
    ToolkitWatch area;
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    area.resize(area.width() + 20, area.height());
    ASSERT_TRUE(waitUntil([&] { return painter.exposures.size() >= 2; }));
    EXPECT_EQ(area.paints, 0);
    EXPECT_EQ(area.resizes, 0);
}

TEST_F(DrawArea, WithoutAPageTheToolkitPaintsAndResizesAndTheExposureFollows)
{
    EngineProbe::setPageTrackerState(0);
    ToolkitWatch area;
    int exposures = 0;
    area.connectDrawAreaExposed([&](bool) {
        ++exposures;
        EXPECT_GE(area.paints, exposures);
    });
    ASSERT_TRUE(showAndWait(area));
    EXPECT_GE(area.paints, 1);
    EXPECT_GE(area.resizes, 1);
    EXPECT_GE(exposures, 1);
    EXPECT_FALSE(area.autoBufferSwap());
}

TEST_F(DrawArea, SwappingBeforeTheWindowIsExposedWarnsOfNothing)
{
    GLDrawArea area;
    area.winId(); // there is a window now, on no screen yet
    ASSERT_TRUE(area.getGLContext().setCurrentGL());
    const QtWarnings warnings;
    area.getGLContext().swapBuffers();
    EXPECT_THAT(warnings.messages(), ::testing::IsEmpty());
}

TEST_F(DrawArea, ClearingTheContextLeavesItCurrent)
{
    GLDrawArea area;
    ASSERT_TRUE(area.getGLContext().setCurrentGL());
    EXPECT_TRUE(area.getGLContext().clearCurrentGL());
    EXPECT_EQ(toolkit::GLContext::currentContext(), area.context());
}

TEST_F(DrawArea, PrintDebugPrintsFourteenLinesOncePerConstruction)
{
    ::setenv("VELMORA_PRINT_DEBUG", "1", 1);
    ::testing::internal::CaptureStdout();
    const GLDrawArea area;
    std::fflush(stdout);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    ::unsetenv("VELMORA_PRINT_DEBUG");

    const toolkit::ContextFacts format = toolkit::factsOf(area.format());
    const auto line = [](const char* label, long value) { return std::string(label) + std::to_string(value) + "\n"; };
    EXPECT_EQ(printed, line("GL accumulation Buffer On = ", format.hasAccum) +
                           line("GL accumulation Buffer Sz = ", format.accumSize) +
                           line("GL alpha Buffer Size      = ", format.alphaSize) +
                           line("GL depth Buffer On        = ", format.hasDepth) +
                           line("GL depth Buffer Size      = ", format.depthSize) +
                           line("GL stencil Buffer Sz      = ", format.stencilSize) +
                           line("GL double Buffer On       = ", format.hasDoubleBuffer) +
                           line("GL red Buffer Size        = ", format.redSize) +
                           line("GL green Buffer Size      = ", format.greenSize) +
                           line("GL blue Buffer Size       = ", format.blueSize) +
                           line("GL major Version          = ", format.majorVersion) +
                           line("GL minor Version          = ", format.minorVersion) +
                           line("GL plane                  = ", format.plane) +
                           line("GL swap Interval          = ", format.swapInterval));
}

TEST_F(DrawArea, WithoutPrintDebugNothingIsPrinted)
{
    ::testing::internal::CaptureStdout();
    const GLDrawArea area;
    std::fflush(stdout);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(DrawArea, IsNotValidAfterOnDestroyedThoughItsContextStillIs)
{
    GLDrawArea area;
    Painter painter(area, Green);
    int emitted = 0;
    area.connectDrawAreaDestroyed([&] { ++emitted; });
    area.onDestroyed();
    EXPECT_FALSE(area.isValidWidget());
    EXPECT_TRUE(area.isValid());
    EXPECT_EQ(painter.destructions, 1);
    EXPECT_EQ(emitted, 1);
}

TEST_F(DrawArea, IsNotValidAnyMoreWhenItsEndIsTold)
{
    class Listener : public GLDrawAreaListenerInterface {
    public:
        void drawAreaExposed(GLDrawAreaInterface&, bool) override {}
        void drawAreaDestroyed(GLDrawAreaInterface& area) override
        {
            valid = area.isValidWidget();
            area.removeStateListener(this);
        }
        void drawAreaFocusGained(GLDrawAreaInterface&) override {}
        bool valid = true;
    } listener;
    bool validInSlot = true;
    auto owner = std::make_unique<GLDrawArea>();
    GLDrawArea* const area = owner.get();
    area->addStateListener(&listener);
    area->connectDrawAreaDestroyed([&] {
        validInSlot = area->isValidWidget();
        EXPECT_TRUE(area->isValid()) << "the context is there still";
    });
    ASSERT_TRUE(area->isValidWidget());
    owner.reset();
    EXPECT_FALSE(listener.valid);
    EXPECT_FALSE(validInSlot);
}

TEST_F(DrawArea, TheToolkitsWordOfItsEndIsConnectedOnce)
{
    GLDrawArea area;
    EXPECT_TRUE(QObject::disconnect(&area, SIGNAL(destroyed(QObject*)), &area, SLOT(onDestroyed())));
    EXPECT_FALSE(QObject::disconnect(&area, SIGNAL(destroyed(QObject*)), &area, SLOT(onDestroyed())));
}

TEST_F(DrawArea, ItsEndIsToldOnceAlthoughTheToolkitSaysItToo)
{
    int told = 0;
    {
        GLDrawArea area;
        area.connectDrawAreaDestroyed([&] { ++told; });
    }
    EXPECT_EQ(told, 1);
}

TEST_F(DrawArea, ItsObserversAreMadeInTheirOrder)
{
    const std::vector<std::string> names = {"GLDrawAreaPageTracker", "GLDrawAreaStateObservable",
                                            "MouseEventObservable", "KeyEventObservable"};
    for (size_t failing = 0; failing < names.size(); ++failing) {
        EngineProbe::throwAt(names[failing]);
        EngineProbe::startLog();
        EngineProbe::clearLog();
        EXPECT_THROW(GLDrawArea(), velmora::ExceptionBase);
        // Those made before it, taken down again in the reverse order.
        std::vector<std::string> taken;
        for (const std::string& entry : EngineProbe::log())
            if (entry[0] == '~' && entry != "~AppLock")
                taken.push_back(entry.substr(1));
        EXPECT_EQ(taken, std::vector<std::string>(names.rend() - static_cast<long>(failing), names.rend()));
    }
}

TEST_F(DrawArea, ItsListenersHearOfItsEndWhileTheContextWorks)
{
    auto area = std::make_unique<GLDrawArea>();
    Painter painter(*area, Green);
    ASSERT_TRUE(showAndWait(*area));
    area.reset();
    EXPECT_EQ(painter.destructions, 1);
    EXPECT_TRUE(painter.contextWorkedAtTheEnd);
}

TEST_F(DrawArea, ItsObserversGoInTheOrderOfTheirCreation)
{
    auto area = std::make_unique<GLDrawArea>();
    EngineProbe::startLog();
    area.reset();
    EXPECT_EQ(EngineProbe::log(), (std::vector<std::string>{"~GLDrawAreaPageTracker", "~GLDrawAreaStateObservable",
                                                            "~MouseEventObservable", "~KeyEventObservable"}));
}

TEST_F(DrawArea, ItsHooksHaveNoEffect)
{
    GLDrawArea area;
    Painter painter(area, Green);
    area.signalDrawAreaExposedConnected();
    area.signalDrawAreaDestroyedConnected();
    area.signalDrawAreaFocusGainedConnected();
    EXPECT_TRUE(painter.exposures.empty());
    EXPECT_EQ(painter.destructions, 0);
    EXPECT_EQ(painter.focusGains, 0);
}
