// Wheels of fine steps, and touch pads: what listeners hear comes to what was turned.

#include "tests/intern/MonitorFixture.h"
#include "tests/support/WheelEvents.h"

#include "interfaces/MouseWheelEventInterface.h"

using namespace velmora::test;
using velmora::sdk::integration::MouseWheelEventInterface;

namespace {

constexpr int Notch = 120; // eighths of a degree

class WheelSteps : public MonitorTest {
protected:
    WheelSteps()
    {
        watch();
        m_turned = monitor.connectWheelRotated([this](MouseWheelEventInterface& event) {
            const bool isVertical = event.orientation() == MouseWheelEventInterface::Orientation_Vertical;
            (isVertical ? sum.ry() : sum.rx()) += event.delta();
        });
    }

    void turn(const QPoint& turned, const QPoint& pixels = QPoint())
    {
        for (const auto& event : wheelEventsOf(turned, pixels))
            QCoreApplication::sendEvent(&widget, event.get());
    }
    void turnOften(int times, const QPoint& turned)
    {
        for (int step = 0; step < times; ++step)
            turn(turned);
    }

    QPoint sum;

private:
    boost::signals2::scoped_connection m_turned;
};

} // namespace

TEST_F(WheelSteps, ManySmallStepsComeToTheSameAsOneLargeOne)
{
    turn(QPoint(0, Notch));
    const QPoint notch = sum;
    sum = QPoint();
    turnOften(Notch, QPoint(0, 1));
    EXPECT_EQ(sum, notch);
    EXPECT_EQ(sum, QPoint(0, Notch));
}

TEST_F(WheelSteps, SoDoStepsBackAndThoseOfAWheelThatIsTilted)
{
    turnOften(Notch, QPoint(0, -1));
    EXPECT_EQ(sum, QPoint(0, -Notch));
    turnOften(Notch, QPoint(-1, 0));
    EXPECT_EQ(sum, QPoint(-Notch, -Notch));
    turnOften(7, QPoint(0, 1));
    turnOften(7, QPoint(0, -1));
    EXPECT_EQ(sum, QPoint(-Notch, -Notch)) << "there and back is nothing";
}

TEST_F(WheelSteps, ATurnInBothDirectionsIsHeardOnceInEach)
{
    turnOften(Notch, QPoint(1, -2));
    EXPECT_EQ(sum, QPoint(Notch, -2 * Notch));
    turnOften(Notch, QPoint(-3, 1));
    EXPECT_EQ(sum, QPoint(-2 * Notch, -Notch));
}

TEST_F(WheelSteps, ATouchPadThatTellsPixelsAloneIsHeardToo)
{
    if (!wheelEventsHavePixels())
        GTEST_SKIP() << "the toolkit tells no pixels";
    turn(QPoint(), QPoint(0, 10));
    EXPECT_EQ(sum, QPoint(0, Notch));
    for (int pixel = 0; pixel < 10; ++pixel)
        turn(QPoint(), QPoint(1, -1));
    EXPECT_EQ(sum, QPoint(Notch, 0));
    turn(QPoint(0, 5), QPoint(0, 3));
    EXPECT_EQ(sum, QPoint(Notch, 5)) << "where both are told, the angle counts";
}

TEST_F(WheelSteps, TheCopyOfATurnTellsTheSame)
{
    monitor.busy = true;
    monitor.interrupting = true;
    turn(QPoint(30, -40));
    monitor.busy = false;
    monitor.interrupting = false;
    EXPECT_EQ(sum, QPoint());
    sendPlain(widget, trigger);
    EXPECT_EQ(sum, QPoint(30, -40));
}
