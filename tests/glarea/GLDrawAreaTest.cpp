#include "integration/glarea/GLDrawArea.h"

#include "interfaces/GLDrawAreaListenerInterface.h"
#include "interfaces/KeyEventInterface.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "testing/EngineProbe.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QDockWidget>
#include <QFocusEvent>
#include <QMainWindow>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/gl.h>
#include <X11/keysym.h>

using namespace velmora::sdk::integration;
using namespace velmora::test;
using velmora::testing::EngineProbe;

namespace {

constexpr QRgb Green = 0xff00ff00;
constexpr QRgb Blue = 0xff0000ff;

// Paints an area in one colour on every exposure, as the engine paints its page, and keeps a record
// of what it heard.
class Painter : public GLDrawAreaListenerInterface {
public:
    Painter(GLDrawArea& area, QRgb color) : m_area(&area), m_color(color) { area.addStateListener(this); }
    ~Painter() override
    {
        if (m_area)
            m_area->removeStateListener(this);
    }

    void drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged) override
    {
        exposures.push_back(sizeChanged);
        int width = 0;
        int height = 0;
        area.getSize(&width, &height);
        area.getGLContext().setCurrentGL();
        glViewport(0, 0, width, height);
        glClearColor(qRed(m_color) / 255.f, qGreen(m_color) / 255.f, qBlue(m_color) / 255.f, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        area.getGLContext().swapBuffers();
    }
    void drawAreaDestroyed(GLDrawAreaInterface& area) override
    {
        ++destructions;
        contextWorkedAtTheEnd = area.getGLContext().setCurrentGL() && glGetString(GL_VERSION) != nullptr;
        area.removeStateListener(this);
        m_area = nullptr;
    }
    void drawAreaFocusGained(GLDrawAreaInterface&) override { ++focusGains; }

    std::vector<bool> exposures;
    int destructions = 0;
    int focusGains = 0;
    bool contextWorkedAtTheEnd = false;

private:
    GLDrawArea* m_area;
    QRgb m_color;
};

class Recorder : public MouseEventListenerInterface, public KeyEventListenerInterface {
public:
    explicit Recorder(GLDrawArea& area) : m_area(area)
    {
        area.addMouseListener(this);
        area.addKeyboardListener(this);
    }
    ~Recorder() override
    {
        m_area.removeMouseListener(this);
        m_area.removeKeyboardListener(this);
    }

    void mouseMoved(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("moved", e, s); }
    void buttonPressed(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("pressed", e, s); }
    void buttonReleased(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("released", e, s); }
    void buttonDoublePressed(MouseEventInterface& e, MouseEventObservableInterface& s) override
    {
        mouse("double", e, s);
    }
    void keyPressed(KeyEventInterface& e, KeyEventObservableInterface& s) override { key("key down", e, s); }
    void keyReleased(KeyEventInterface& e, KeyEventObservableInterface& s) override { key("key up", e, s); }

    bool has(const std::string& entry) const { return std::find(log.begin(), log.end(), entry) != log.end(); }

    std::vector<std::string> log;

private:
    void mouse(const char* what, MouseEventInterface& event, MouseEventObservableInterface& source)
    {
        EXPECT_EQ(&source, static_cast<MouseEventObservableInterface*>(&m_area));
        log.push_back(std::string(what) + " " + std::to_string(event.button()) + " at " + std::to_string(event.x()) +
                      "," + std::to_string(event.y()) + " with " + std::to_string(event.keyboardModifiers()));
    }
    void key(const char* what, KeyEventInterface& event, KeyEventObservableInterface& source)
    {
        EXPECT_EQ(&source, static_cast<KeyEventObservableInterface*>(&m_area));
        log.push_back(std::string(what) + " " + std::to_string(event.key()) + " with " +
                      std::to_string(event.keyboardModifiers()));
    }

    GLDrawArea& m_area;
};

bool showsOnly(const QWidget& widget, QRgb color)
{
    const QImage shot = grabFromScreen(widget);
    return !shot.isNull() && countColor(shot, color) == shot.width() * shot.height();
}

bool comesToShow(const QWidget& widget, QRgb color)
{
    return waitUntil([&] { return showsOnly(widget, color); });
}

// The engine owns the picture, so that only the painters of these tests paint.
class DrawArea : public ::testing::Test {
protected:
    void SetUp() override
    {
        EngineProbe::reset();
        EngineProbe::setPageTrackerState(1);
        movePointerToScreen(1200, 1000);
    }
    void TearDown() override { EngineProbe::reset(); }
};

} // namespace

namespace {

// Tells which of the toolkit's own handlers were reached.
class ToolkitWatch : public GLDrawArea {
public:
    int paints = 0;
    int resizes = 0;
    using GLDrawArea::autoBufferSwap;
    using GLDrawArea::focusInEvent;

protected:
    void paintGL() override { ++paints; }
    void resizeGL(int, int) override { ++resizes; }
};

} // namespace

TEST_F(DrawArea, IsFoundByItsNameItsClassAndItsInterface)
{
    GLDrawArea area;
    EXPECT_EQ(area.objectName(), QLatin1String("GLDrawArea"));
    EXPECT_STREQ(area.metaObject()->className(), "velmora::sdk::integration::GLDrawArea");
    QObject* const object = &area;
    EXPECT_EQ(qobject_cast<GLDrawAreaInterface*>(object), static_cast<GLDrawAreaInterface*>(&area));
    EXPECT_EQ(object->qt_metacast("GLDrawAreaInterface"), static_cast<void*>(static_cast<GLDrawAreaInterface*>(&area)));
    EXPECT_EQ(object->qt_metacast("QGLWidget"), static_cast<void*>(static_cast<QGLWidget*>(&area)));
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

    const size_t before = painter.exposures.size();
    area.repaint();
    ASSERT_GT(painter.exposures.size(), before);
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
    ASSERT_TRUE(waitUntil([&] { return !painter.exposures.empty(); }));
    EXPECT_TRUE(painter.exposures.front());
    int width = 0;
    int height = 0;
    area.getSize(&width, &height);
    EXPECT_EQ(width, 120);
    EXPECT_EQ(height, 90);
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

TEST_F(DrawArea, ClearingTheContextLeavesItCurrent)
{
    GLDrawArea area;
    ASSERT_TRUE(area.getGLContext().setCurrentGL());
    EXPECT_TRUE(area.getGLContext().clearCurrentGL());
    EXPECT_EQ(QGLContext::currentContext(), area.context());
}

TEST_F(DrawArea, PrintDebugPrintsFourteenLinesOncePerConstruction)
{
    ::setenv("VELMORA_PRINT_DEBUG", "1", 1);
    ::testing::internal::CaptureStdout();
    const GLDrawArea area;
    std::fflush(stdout);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    ::unsetenv("VELMORA_PRINT_DEBUG");

    const QGLFormat format = area.format();
    const auto line = [](const char* label, long value) { return std::string(label) + std::to_string(value) + "\n"; };
    EXPECT_EQ(printed, line("GL accumulation Buffer On = ", format.accum()) +
                           line("GL accumulation Buffer Sz = ", format.accumBufferSize()) +
                           line("GL alpha Buffer Size      = ", format.alphaBufferSize()) +
                           line("GL depth Buffer On        = ", format.depth()) +
                           line("GL depth Buffer Size      = ", format.depthBufferSize()) +
                           line("GL stencil Buffer Sz      = ", format.stencilBufferSize()) +
                           line("GL double Buffer On       = ", format.doubleBuffer()) +
                           line("GL red Buffer Size        = ", format.redBufferSize()) +
                           line("GL green Buffer Size      = ", format.greenBufferSize()) +
                           line("GL blue Buffer Size       = ", format.blueBufferSize()) +
                           line("GL major Version          = ", format.majorVersion()) +
                           line("GL minor Version          = ", format.minorVersion()) +
                           line("GL plane                  = ", format.plane()) +
                           line("GL swap Interval          = ", format.swapInterval()));
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

TEST_F(DrawArea, EveryFocusInIsAnnounced)
{
    QWidget window;
    QVBoxLayout layout(&window);
    GLDrawArea area(&window);
    GLDrawArea other(&window);
    layout.addWidget(&area);
    layout.addWidget(&other);
    Painter painter(area, Green);
    int emitted = 0;
    area.connectDrawAreaFocusGained([&] { ++emitted; });
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    other.setFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    emitted = painter.focusGains = 0;
    area.setFocus();
    EXPECT_TRUE(waitUntil([&] { return emitted == 1; }));
    EXPECT_EQ(painter.focusGains, 1);
    other.setFocus();
    processPending();
    EXPECT_EQ(emitted, 1);
}

TEST_F(DrawArea, OnlyAFocusInEventIsAStateChangeButTheSignalAlwaysComes)
{
    ToolkitWatch area;
    Painter painter(area, Green);
    int emitted = 0;
    area.connectDrawAreaFocusGained([&] { ++emitted; });
    QFocusEvent focusOut(QEvent::FocusOut);
    area.focusInEvent(&focusOut);
    EXPECT_EQ(painter.focusGains, 0);
    EXPECT_EQ(emitted, 1);
}

TEST_F(DrawArea, ListenersHearBeforeTheSignals)
{
    GLDrawArea area;
    Painter painter(area, Green);
    Recorder recorder(area);
    area.connectMouseMoved([&](MouseEventInterface&) { recorder.log.push_back("signal"); });
    area.connectDrawAreaDestroyed([&] { EXPECT_EQ(painter.destructions, 1); });
    size_t exposures = 0;
    area.connectDrawAreaExposed([&](bool) { EXPECT_EQ(painter.exposures.size(), ++exposures); });
    QMouseEvent move(QEvent::MouseMove, QPoint(1, 2), Qt::NoButton, Qt::NoButton,
                     Qt::ShiftModifier | Qt::AltModifier | Qt::MetaModifier);
    QCoreApplication::sendEvent(&area, &move);
    EXPECT_EQ(recorder.log, (std::vector<std::string>{"moved 0 at 1,2 with 5", "signal"}));
    ASSERT_TRUE(showAndWait(area));
    EXPECT_GT(exposures, 0u);
    area.onDestroyed();
}

TEST_F(DrawArea, MouseInputReachesListenersAndSignals)
{
    GLDrawArea area;
    area.resize(200, 150);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    Recorder recorder(area);
    std::vector<int> signalled;
    area.connectButtonPressed([&](MouseEventInterface& e) { signalled.push_back(e.button()); });
    area.connectButtonReleased([&](MouseEventInterface& e) { signalled.push_back(10 + e.button()); });
    area.connectButtonDoublePressed([&](MouseEventInterface& e) { signalled.push_back(20 + e.button()); });
    int moves = 0;
    area.connectMouseMoved([&](MouseEventInterface& e) {
        ++moves;
        EXPECT_EQ(e.button(), MouseEventInterface::MouseButton_None);
    });

    click(area, QPoint(40, 30));
    EXPECT_TRUE(waitUntil([&] { return recorder.has("released 1 at 40,30 with 0"); }));
    EXPECT_TRUE(recorder.has("pressed 1 at 40,30 with 0"));
    EXPECT_TRUE(recorder.has("moved 0 at 40,30 with 0"));
    EXPECT_GE(moves, 1);
    EXPECT_EQ(signalled, (std::vector<int>{1, 11}));

    signalled.clear();
    click(area, QPoint(90, 90), 3);
    EXPECT_TRUE(waitUntil([&] { return signalled.size() == 2; }));
    EXPECT_EQ(signalled, (std::vector<int>{3, 13}));

    signalled.clear();
    doubleClick(area, QPoint(10, 100));
    EXPECT_TRUE(waitUntil([&] { return signalled.size() == 4; }));
    EXPECT_EQ(signalled, (std::vector<int>{1, 11, 21, 11}));
    EXPECT_TRUE(recorder.has("double 1 at 10,100 with 0"));
}

TEST_F(DrawArea, KeysReachItsListenersAndNotItsParent)
{
    class Parent : public QWidget {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    } window;
    QVBoxLayout layout(&window);
    GLDrawArea area(&window);
    layout.addWidget(&area);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    area.setFocus();
    ASSERT_TRUE(waitUntil([&] { return area.hasFocus(); }));
    Recorder recorder(area);
    pressKey(XK_Shift_L);
    typeKey(XK_a);
    releaseKey(XK_Shift_L);
    // The modifiers are the event's stored ones, in which the key that comes up still counts.
    EXPECT_TRUE(waitUntil([&] { return recorder.has("key up " + std::to_string(Qt::Key_Shift) + " with 1"); }));
    EXPECT_TRUE(recorder.has("key down " + std::to_string(Qt::Key_A) + " with 1"));
    EXPECT_TRUE(recorder.has("key up " + std::to_string(Qt::Key_A) + " with 1"));
    EXPECT_EQ(window.keys, 0);
}

TEST_F(DrawArea, ARemovedListenerHearsNothingMore)
{
    GLDrawArea area;
    area.resize(100, 100);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    int signalled = 0;
    area.connectButtonReleased([&](MouseEventInterface&) { ++signalled; });
    auto recorder = std::make_unique<Recorder>(area);
    Recorder* const gone = recorder.get();
    area.removeMouseListener(gone);
    recorder->log.clear();
    click(area, QPoint(50, 50));
    ASSERT_TRUE(waitUntil([&] { return signalled == 1; }));
    EXPECT_TRUE(recorder->log.empty());
}

TEST_F(DrawArea, ShowsItsPictureInADockAndAfterFloating)
{
    QMainWindow window;
    window.resize(500, 400);
    QDockWidget* const dock = new QDockWidget(&window);
    GLDrawArea* const area = new GLDrawArea(dock);
    area->setMinimumSize(100, 100);
    Painter painter(*area, Green);
    dock->setWidget(area);
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    ASSERT_TRUE(showAndWait(window));
    EXPECT_TRUE(comesToShow(*area, Green));

    dock->setFloating(true);
    dock->move(600, 300);
    EXPECT_TRUE(comesToShow(*area, Green));
    dock->setFloating(false);
    EXPECT_TRUE(comesToShow(*area, Green));
    EXPECT_TRUE(area->isValidWidget());
}

TEST_F(DrawArea, ShowsItsPictureAfterReparentingAndHiding)
{
    QWidget first;
    QWidget second;
    first.setGeometry(0, 0, 200, 150);
    second.setGeometry(400, 0, 300, 250);
    GLDrawArea* const area = new GLDrawArea(&first);
    area->setGeometry(10, 10, 120, 100);
    Painter painter(*area, Blue);
    ASSERT_TRUE(showAndWait(first));
    ASSERT_TRUE(showAndWait(second));
    EXPECT_TRUE(comesToShow(*area, Blue));

    area->setParent(&second);
    area->show();
    EXPECT_TRUE(comesToShow(*area, Blue));

    area->hide();
    EXPECT_FALSE(area->isVisible());
    ASSERT_TRUE(waitUntil([&] { return countColor(grabFromScreen(second), Blue) == 0; }));
    area->show();
    EXPECT_TRUE(comesToShow(*area, Blue));

    area->setParent(nullptr);
    area->move(50, 500);
    area->show();
    EXPECT_TRUE(comesToShow(*area, Blue));
    delete area;
    EXPECT_EQ(painter.destructions, 1);
}

TEST_F(DrawArea, TwoAreasShowTheirOwnPictures)
{
    QWidget window;
    QHBoxLayout layout(&window);
    GLDrawArea left(&window);
    GLDrawArea right(&window);
    layout.addWidget(&left);
    layout.addWidget(&right);
    window.resize(400, 200);
    Painter green(left, Green);
    Painter blue(right, Blue);
    ASSERT_TRUE(showAndWait(window));
    EXPECT_TRUE(comesToShow(left, Green));
    EXPECT_TRUE(comesToShow(right, Blue));
    left.repaint();
    right.repaint();
    left.repaint();
    EXPECT_TRUE(comesToShow(left, Green));
    EXPECT_TRUE(comesToShow(right, Blue));
}

TEST_F(DrawArea, DestroyingTheParentFirstDestroysTheAreaCleanly)
{
    auto window = std::make_unique<QMainWindow>();
    GLDrawArea* const area = new GLDrawArea(window.get());
    window->setCentralWidget(area);
    Painter painter(*area, Green);
    ASSERT_TRUE(showAndWait(*window));
    EXPECT_TRUE(comesToShow(*area, Green));
    window.reset();
    EXPECT_EQ(painter.destructions, 1);
    EXPECT_TRUE(painter.contextWorkedAtTheEnd);
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
