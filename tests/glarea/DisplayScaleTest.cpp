// A drawing area whose window the toolkit scales: the engine is told pixels of the screen. Run by itself
// too, where they are the toolkit's.
#include "integration/toolkit/DisplayScale.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/MouseWheelEventInterface.h"
#include "tests/glarea/DisplayScaleFixture.h"
#include "tests/intern/MonitorHarness.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/WheelEvents.h"
#include "tests/support/XInput.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <memory>
#include <vector>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

using namespace velmora::sdk::integration;
using namespace velmora::test;

namespace {

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
    XGetGeometry(toolkitDisplay(), widget.internalWinId(), &root, &x, &y, &width, &height, &border, &depth);
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
    QWheelEvent turn = wheelEvent(QPoint(20, 30), QPoint(20, 30), 120, Qt::NoButton, Qt::NoModifier, Qt::Vertical);
    QCoreApplication::sendEvent(&area, &turn);
    ASSERT_FALSE(wheels.empty());
    EXPECT_EQ(wheels.front(), inScreenPixels(area, QPoint(20, 30)));
    monitor.stop();
    monitor.removeMouseListener(&ofMonitor);
}
