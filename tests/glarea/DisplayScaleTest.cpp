// A drawing area whose window the toolkit scales: the engine is told pixels of the screen. Run by itself
// too, where they are the toolkit's.
#include "integration/toolkit/DisplayScale.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/MouseWheelEventInterface.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/intern/MonitorHarness.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <QX11Info>
#include <memory>
#include <vector>
#if QT_VERSION >= 0x050000
#include <QGuiApplication>
#include <QScreen>
#endif

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

using namespace velmora::sdk::integration;
using namespace velmora::test;

namespace {

QSize toldSize(const GLDrawArea& area)
{
    int width = 0;
    int height = 0;
    area.getSize(&width, &height);
    return QSize(width, height);
}

/// The size of the widget's own X window.
QSize windowSize(const QWidget& widget)
{
    Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(QX11Info::display(), widget.internalWinId(), &root, &x, &y, &width, &height, &border, &depth);
    return QSize(static_cast<int>(width), static_cast<int>(height));
}

/// Where the mouse was last pressed and released.
class Places : public MouseEventListenerInterface {
public:
    void mouseMoved(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonPressed(MouseEventInterface& event, MouseEventObservableInterface&) override
    {
        pressed = QPoint(event.x(), event.y());
    }
    void buttonReleased(MouseEventInterface& event, MouseEventObservableInterface&) override
    {
        released = QPoint(event.x(), event.y());
    }
    void buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface& source) override
    {
        buttonPressed(event, source);
    }

    QPoint pressed;
    QPoint released;
};

/// An area at an odd place of a window that is on the screen.
class DisplayScale : public DrawArea {
protected:
    void SetUp() override
    {
        DrawArea::SetUp();
        window.setGeometry(21, 33, 301, 247);
        area.setGeometry(11, 13, 161, 105);
        ASSERT_TRUE(showAndWait(window));
        ASSERT_TRUE(comesToShow(area, Green));
    }

    void movePointerToScreenPixel(const QPoint& position) const
    {
        const QPoint corner = placeOnScreen(area, QPoint(0, 0));
        movePointerToScreen(corner.x() + position.x(), corner.y() + position.y());
    }

    QWidget window;
    GLDrawArea area{&window};
    Painter painter{area, Green};
};

} // namespace

TEST_F(DisplayScale, ThePictureFillsTheAreaAndNothingElse)
{
    const QSize size = inScreenPixels(area, area.size());
    EXPECT_EQ(grabFromScreen(area).size(), size);
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(window), Green) == size.width() * size.height(); }));
}

TEST_F(DisplayScale, ItsSizeIsThatOfItsXWindow)
{
    for (int more = 0; more < 6; ++more) {
        area.setGeometry(more, 2 * more, 101 + more, 78 + more);
        ASSERT_TRUE(waitUntil([&] { return windowSize(area) == toldSize(area); }, 3000))
            << toldSize(area).width() << "x" << toldSize(area).height();
        EXPECT_TRUE(comesToShow(area, Green));
    }
}

TEST_F(DisplayScale, AClickIsReportedAtItsPixelOfTheScreen)
{
    Places ofArea;
    area.addMouseListener(&ofArea);
    // Neighbours, which the toolkit's own pixels may not tell apart.
    for (const QPoint& place : {QPoint(0, 0), QPoint(41, 32), QPoint(42, 33), QPoint(43, 34)}) {
        movePointerToScreenPixel(place);
        ofArea.released = QPoint(-1, -1);
        pressButton(1);
        releaseButton(1);
        ASSERT_TRUE(waitUntil([&] { return ofArea.released != QPoint(-1, -1); }));
        EXPECT_EQ(ofArea.pressed, place) << place.x() << "," << place.y();
        EXPECT_EQ(ofArea.released, place);
    }
    area.removeMouseListener(&ofArea);
}

TEST_F(DisplayScale, TheMonitorReportsTheSamePlaceForButtonsAndWheel)
{
    SteeredMonitor monitor;
    Places ofMonitor;
    monitor.addMouseListener(&ofMonitor);
    std::vector<QPoint> wheels;
    monitor.connectWheelRotated([&](MouseWheelEventInterface& event) { wheels.emplace_back(event.x(), event.y()); });
    monitor.start();
    const QPoint place(55, 71);
    movePointerToScreenPixel(place);
    pressButton(3);
    releaseButton(3);
    EXPECT_TRUE(waitUntil([&] { return ofMonitor.released == place; }, 3000));
    EXPECT_EQ(ofMonitor.pressed, place);
    QWheelEvent turn(QPoint(20, 30), QPoint(20, 30), 120, Qt::NoButton, Qt::NoModifier, Qt::Vertical);
    QCoreApplication::sendEvent(&area, &turn);
    ASSERT_FALSE(wheels.empty());
    EXPECT_EQ(wheels.front(), inScreenPixels(area, QPoint(20, 30)));
    monitor.stop();
    monitor.removeMouseListener(&ofMonitor);
}

#if QT_VERSION >= 0x050000

TEST_F(DisplayScale, AnEventThatIsSentAgainKeepsItsPixelOfTheScreen)
{
    const QPoint place(41, 33);
    const QPointF position = QPointF(place) / displayScale(area);
    // As the toolkit makes them: exact in the window alone.
    const QMouseEvent press(QEvent::MouseButtonPress, position.toPoint(), position, position, Qt::LeftButton,
                            Qt::LeftButton, Qt::NoModifier);
    ASSERT_EQ(toolkit::screenPosition(press, area), place);
    Probe::EventCloner cloner;
    Monitor::eventAnalyzer(press, area, cloner);
    const std::unique_ptr<QEvent> copy(cloner.clonedEvent());
    ASSERT_TRUE(copy);
    EXPECT_EQ(toolkit::screenPosition(static_cast<const QMouseEvent&>(*copy), area), place);
}

// As when the window is moved to a screen that is scaled differently.
TEST_F(DisplayScale, AnotherScaleIsAnotherSizeThoughTheWidgetKeepsIts)
{
    if (qgetenv("QT_SCREEN_SCALE_FACTORS").isEmpty())
        GTEST_SKIP() << "The toolkit scales no screen by itself.";
    const QSize before = toldSize(area);
    area.repaint();
    ASSERT_FALSE(painter.exposures.back());
    QScreen* const screen = QGuiApplication::primaryScreen();
    screen->setProperty("_q_scaleFactor", displayScale(area) * 2);
    area.repaint();
    EXPECT_NEAR(toldSize(area).width(), before.width() * 2, 1);
    EXPECT_TRUE(painter.exposures.back());
    area.repaint();
    EXPECT_FALSE(painter.exposures.back());
    screen->setProperty("_q_scaleFactor", QVariant());
}

#endif
