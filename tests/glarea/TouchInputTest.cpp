// Fingers on a drawing area.

#include "tests/glarea/Touches.h"
#include "tests/intern/MonitorHarness.h"
#include "tests/support/Wait.h"

#include "integration/glarea/GLDrawArea.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/MouseWheelEventInterface.h"

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

using namespace velmora::sdk::integration;
using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr int Notch = 120;
const QPoint A(100, 200);
const QPoint B(200, 200);

auto* touchScreen()
{
    static auto* const device = QTest::createTouchDevice();
    return device;
}

/// An area with a listener, and an event monitor that hears of the wheel.
class Touches : public ::testing::Test, private MouseEventListenerInterface {
protected:
    Touches()
    {
        QApplication::setDoubleClickInterval(400);
        window->setGeometry(100, 100, 400, 400);
        area->setGeometry(0, 0, 400, 400);
        EXPECT_TRUE(showAndWait(*window));
        area->addMouseListener(this);
        monitor.start();
        m_wheel = monitor.connectWheelRotated([this](MouseWheelEventInterface& event) {
            if (event.orientation() == MouseWheelEventInterface::Orientation_Vertical)
                stretched += event.delta();
            else
                turned += event.delta();
            wheelPlace = QPoint(event.x(), event.y());
        });
    }
    ~Touches() override
    {
        if (area)
            area->removeMouseListener(this);
    }

    long timesHeard(const std::string& entry) const { return std::count(heard.begin(), heard.end(), entry); }
    void choose(TouchInput_e input) { area->setTouchInput(input); }
    auto touch() { return QTest::touchEvent(area, touchScreen()); }
    void press(int finger, const QPoint& position) { touch().press(finger, position, area); }
    void move(int finger, const QPoint& position) { touch().move(finger, position, area); }
    void release(int finger, const QPoint& position) { touch().release(finger, position, area); }
    void tap(const QPoint& position)
    {
        press(0, position);
        release(0, position);
    }
    /// Two fingers, of which the first stays where it is.
    void pressTwo(const QPoint& first, const QPoint& second)
    {
        press(0, first);
        touch().move(0, first, area).press(1, second, area);
    }
    void moveSecond(const QPoint& position) { touch().move(0, A, area).move(1, position, area); }
    void releaseTwo(const QPoint& first, const QPoint& second)
    {
        touch().release(0, first, area).release(1, second, area);
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<GLDrawArea> area = new GLDrawArea(window.get()); // which owns it
    Journal heard;
    int stretched = 0;
    int turned = 0;
    QPoint wheelPlace;
    std::function<void()> whenPressed;
    SteeredMonitor monitor;

private:
    void note(const char* what, const MouseEventInterface& event)
    {
        heard.push_back(std::string(what) + " " + std::to_string(event.button()) + " at " + std::to_string(event.x()) +
                        "," + std::to_string(event.y()));
    }
    void mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&) override { note("moved", event); }
    void buttonPressed(MouseEventInterface& event, MouseEventObservableInterface&) override
    {
        note("pressed", event);
        if (whenPressed)
            whenPressed();
    }
    void buttonReleased(MouseEventInterface& event, MouseEventObservableInterface&) override
    {
        note("released", event);
    }
    void buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface&) override
    {
        note("double", event);
    }

    boost::signals2::scoped_connection m_wheel;
};

/// With the choice that a second finger is nothing.
class OneFinger : public Touches {
protected:
    OneFinger() { choose(TouchInput_OneFinger); }
};

class Gestures : public Touches {
protected:
    Gestures() { choose(TouchInput_Gestures); }
};

} // namespace

TEST_F(Touches, AreTheToolkitsWhichMakesOnePressOfAFinger)
{
    EXPECT_EQ(area->touchInput(), TouchInput_Toolkit);
    tap(A);
    EXPECT_EQ(timesHeard("pressed 1 at 100,200"), 1);
    EXPECT_EQ(timesHeard("released 1 at 100,200"), 1);
    sendPadZoom(*area, 0.2);
    EXPECT_EQ(stretched, 0);
}

TEST_F(OneFinger, IsTheLeftButtonAtOnceAndOnce)
{
    press(0, A);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200"));
    move(0, A + QPoint(1, 2));
    move(0, A + QPoint(30, 0));
    release(0, A + QPoint(30, 0));
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "moved 0 at 101,202", "moved 0 at 130,200",
                                   "released 1 at 130,200"));
}

TEST_F(OneFinger, IsNotDisturbedByASecond)
{
    pressTwo(A, B);
    moveSecond(B + QPoint(50, 0));
    releaseTwo(A, B + QPoint(50, 0));
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200"));
    EXPECT_EQ(stretched, 0);
}

TEST_F(OneFinger, ThatLeavesBeforeTheSecondReleasesTheButton)
{
    pressTwo(A, B);
    touch().release(0, A, area).move(1, B, area);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200"));
    release(1, B);
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(OneFinger, WhoseTouchIsGivenUpReleasesTheButton)
{
    press(0, A);
    sendTouchCancel(*area);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200"));
    release(0, A);
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(OneFinger, ThatTapsTwiceIsADoublePressAndAThirdTimeAPress)
{
    for (int time = 0; time < 3; ++time)
        tap(A);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200", "double 1 at 100,200",
                                   "released 1 at 100,200", "pressed 1 at 100,200", "released 1 at 100,200"));
}

TEST_F(OneFinger, ThatTapsElsewhereIsNoDoublePress)
{
    tap(A);
    tap(B);
    EXPECT_EQ(heard[2], "pressed 1 at 200,200");
}

TEST_F(OneFinger, MayEndTheAreaWhenAFilterHearsOfItsPress)
{
    struct Host : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() != QEvent::MouseButtonPress)
                return false;
            delete watched;
            return true;
        }
    } host;
    area->installEventFilter(&host);
    press(0, A);
    EXPECT_TRUE(area.isNull());
    QTest::touchEvent(window.get(), touchScreen()).release(0, A, window.get());
}

TEST_F(OneFinger, MayEndItsOwnTouchWithItsPress)
{
    whenPressed = [this] { choose(TouchInput_Toolkit); };
    press(0, A);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200"));
    release(0, A);
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(OneFinger, ThatComesDownWhileTheEngineIsBusyIsDiscarded)
{
    monitor.busy = true;
    press(0, A);
    monitor.busy = false;
    EXPECT_EQ(timesHeard("pressed 1 at 100,200"), 0);
    release(0, A);
}

TEST_F(Gestures, ATapIsAPressAndARelease)
{
    press(0, A);
    EXPECT_THAT(heard, IsEmpty()) << "it may be the first of two";
    release(0, A);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "released 1 at 100,200"));
}

TEST_F(Gestures, ADragBeginsWhereTheFingerCameDown)
{
    press(0, A);
    move(0, A + QPoint(2, 0));
    EXPECT_THAT(heard, IsEmpty());
    move(0, A + QPoint(40, 0));
    release(0, A + QPoint(40, 0));
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "moved 0 at 140,200", "released 1 at 140,200"));
}

TEST_F(Gestures, FingersThatGoApartTurnTheWheelUpBetweenThem)
{
    pressTwo(A, B);
    moveSecond(A + QPoint(120, 0));
    EXPECT_EQ(stretched, Notch) << "a fifth more is a notch";
    EXPECT_EQ(turned, 0);
    EXPECT_EQ(wheelPlace, QPoint(160, 200));
    releaseTwo(A, A + QPoint(120, 0));
    EXPECT_THAT(heard, IsEmpty()) << "and press nothing";
}

TEST_F(Gestures, SlowFingersComeAsFarAsFastOnesAndBackAgain)
{
    pressTwo(A, B);
    for (int x = 101; x <= 144; ++x)
        moveSecond(A + QPoint(x, 0));
    EXPECT_NEAR(stretched, 2 * Notch, 1);
    for (int x = 143; x >= 100; --x)
        moveSecond(A + QPoint(x, 0));
    EXPECT_NEAR(stretched, 0, 1);
    releaseTwo(A, B);
}

TEST_F(Gestures, FingersThatTurnClockwiseTiltTheWheel)
{
    pressTwo(A, B);
    moveSecond(A + QPoint(0, 100));
    EXPECT_EQ(turned, 90 * 8);
    EXPECT_EQ(stretched, 0);
    moveSecond(A + QPoint(-100, -1));
    moveSecond(A + QPoint(0, -100));
    moveSecond(B);
    EXPECT_EQ(turned, 360 * 8) << "all the way around";
    moveSecond(A + QPoint(0, -100));
    EXPECT_EQ(turned, 270 * 8);
    releaseTwo(A, A + QPoint(0, -100));
}

TEST_F(Gestures, ASecondFingerEndsTheDragOfTheFirst)
{
    press(0, A);
    move(0, A + QPoint(40, 0));
    touch().move(0, A + QPoint(40, 0), area).press(1, B + QPoint(40, 0), area);
    EXPECT_THAT(heard, ElementsAre("pressed 1 at 100,200", "moved 0 at 140,200", "released 1 at 140,200"));
    touch().move(0, A + QPoint(40, 0), area).release(1, B + QPoint(40, 0), area);
    move(0, A + QPoint(90, 0));
    release(0, A + QPoint(90, 0));
    EXPECT_EQ(heard.size(), 3u) << "the finger that is left over does nothing";
}

TEST_F(Gestures, TwoOtherFingersBeginAnew)
{
    pressTwo(A, B);
    touch().move(0, A, area).release(1, B, area);
    touch().move(0, A, area).press(2, A + QPoint(50, 0), area);
    EXPECT_EQ(stretched, 0);
    touch().move(0, A, area).move(2, A + QPoint(60, 0), area);
    EXPECT_EQ(stretched, Notch);
    touch().release(0, A, area).release(2, A + QPoint(60, 0), area);
}

TEST_F(Gestures, ATouchPadTurnsTheWheelsToo)
{
    sendPadZoom(*area, 0.2);
    EXPECT_EQ(stretched, Notch);
    EXPECT_EQ(wheelPlace, area->rect().center());
    for (int step = 0; step < 20; ++step)
        sendPadTurn(*area, 0.3);
    EXPECT_NEAR(turned, 48, 1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(Gestures, AFilterOfTheHostsComesFirst)
{
    struct Host : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            const bool isTouch = event->type() == QEvent::TouchBegin || event->type() == QEvent::TouchUpdate ||
                                 event->type() == QEvent::TouchEnd;
            count += isTouch;
            return isTouch;
        }
        int count = 0;
    } host;
    area->installEventFilter(&host);
    pressTwo(A, B);
    moveSecond(A + QPoint(120, 0));
    releaseTwo(A, A + QPoint(120, 0));
    EXPECT_GE(host.count, 4);
    EXPECT_EQ(stretched, 0);
}
