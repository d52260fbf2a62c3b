#include "integration/glarea/MouseEvent.h"

#include "integration/intern/ApplicationEventMonitor.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/MouseEventObservableInterface.h"

#include <QMouseEvent>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

using namespace velmora::sdk::integration;
using intern::ApplicationEventMonitor;
using intern::MouseEvent;

namespace {

QMouseEvent pressOf(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return QMouseEvent(QEvent::MouseButtonPress, QPoint(1, 2), QPoint(3, 4), button, button, modifiers);
}

int buttonOf(Qt::MouseButton button)
{
    return ApplicationEventMonitor::mouseButton(pressOf(button));
}

int modifiersOf(Qt::KeyboardModifiers modifiers)
{
    return ApplicationEventMonitor::genericModifiersForEvent(pressOf(Qt::LeftButton, modifiers));
}

// A producer that does what producers do: it notifies, then emits.
class Producer : public MouseEventObservableInterface {
public:
    void addMouseListener(MouseEventListenerInterface*) override {}
    void removeMouseListener(MouseEventListenerInterface*) override {}
    using MouseEventObservableInterface::emitMouseMoved;
    using MouseEventObservableInterface::emitThreedMouseButtonActionEvent;
    using MouseEventObservableInterface::emitThreedMouseMotionEvent;
    using MouseEventObservableInterface::emitThreedMouseMotionEventEnd;

    mutable int connections = 0;
    void signalMouseMovedConnected() const override { ++connections; }
};

} // namespace

TEST(MouseEvents, TheButtonsMapToOneTwoThreeAndEverythingElseToZero)
{
    EXPECT_EQ(buttonOf(Qt::LeftButton), 1);
    EXPECT_EQ(buttonOf(Qt::MiddleButton), 2);
    EXPECT_EQ(buttonOf(Qt::RightButton), 3);
    EXPECT_EQ(buttonOf(Qt::NoButton), 0);
    EXPECT_EQ(buttonOf(static_cast<Qt::MouseButton>(3)), 0);
}

TEST(MouseEvents, APressOfAnExtraButtonIsReportedWithoutAButton)
{
    EXPECT_EQ(buttonOf(Qt::XButton1), 0);
    EXPECT_EQ(buttonOf(Qt::XButton2), 0);
}

TEST(MouseEvents, ShiftControlAndAltMakeTheGenericMask)
{
    EXPECT_EQ(modifiersOf(Qt::ShiftModifier), 1);
    EXPECT_EQ(modifiersOf(Qt::ControlModifier), 2);
    EXPECT_EQ(modifiersOf(Qt::AltModifier), 4);
    EXPECT_EQ(modifiersOf(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
}

TEST(MouseEvents, MetaAndKeypadModifiersAreDropped)
{
    EXPECT_EQ(modifiersOf(Qt::MetaModifier), 0);
    EXPECT_EQ(modifiersOf(Qt::KeypadModifier | Qt::AltModifier), 4);
}

TEST(MouseEvents, ShiftAndControlAreBothReportedDown)
{
    const MouseEvent event(nullptr, MouseEventInterface::MouseButton_Left, 0, 0, 3);
    EXPECT_TRUE(event.isShiftDown());
    EXPECT_TRUE(event.isControlDown());
    EXPECT_FALSE(event.isAltDown());
    EXPECT_EQ(event.keyboardModifiers(), 3);

    const MouseEvent withAlt(nullptr, MouseEventInterface::MouseButton_Left, 0, 0, 4);
    EXPECT_FALSE(withAlt.isShiftDown());
    EXPECT_FALSE(withAlt.isControlDown());
    EXPECT_TRUE(withAlt.isAltDown());
}

TEST(MouseEvents, ACloneSurvivesItsEventAndReportsTheSame)
{
    Producer producer;
    auto event = std::make_unique<MouseEvent>(&producer, MouseEventInterface::MouseButton_Right, 17, -4, 5);
    const std::unique_ptr<MouseEventInterface> clone(event->clone());
    event.reset();

    EXPECT_EQ(clone->button(), MouseEventInterface::MouseButton_Right);
    EXPECT_EQ(clone->x(), 17);
    EXPECT_EQ(clone->y(), -4);
    EXPECT_EQ(clone->keyboardModifiers(), 5);
    const auto* const record = dynamic_cast<const MouseEvent*>(clone.get());
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->source(), &producer);
}

TEST(MouseEvents, TheHooksHaveNoEffect)
{
    class Quiet : public MouseEventObservableInterface {
    public:
        void addMouseListener(MouseEventListenerInterface*) override { ADD_FAILURE(); }
        void removeMouseListener(MouseEventListenerInterface*) override { ADD_FAILURE(); }
        using MouseEventObservableInterface::emitMouseMoved;
    } quiet;
    int heard = 0;
    quiet.connectMouseMoved([&](MouseEventInterface&) { ++heard; });
    quiet.signalMouseMovedConnected();
    quiet.signalButtonPressedConnected();
    quiet.signalButtonDoublePressedConnected();
    quiet.signalButtonReleasedConnected();
    quiet.signalWheelRotatedConnected();
    quiet.signalThreedMouseMotionEventConnected();
    quiet.signalThreedMouseMotionEventEndConnected();
    quiet.signalThreedMouseButtonActionEventConnected();
    EXPECT_EQ(heard, 0);

    MouseEvent event(&quiet, MouseEventInterface::MouseButton_None, 0, 0, 0);
    quiet.emitMouseMoved(event);
    EXPECT_EQ(heard, 1);
}

TEST(MouseEvents, ConnectingASlotCallsTheHookOnceAfterwards)
{
    Producer producer;
    EXPECT_EQ(producer.connections, 0);
    const Connection connection = producer.connectMouseMoved([](MouseEventInterface&) {});
    EXPECT_EQ(producer.connections, 1);
    EXPECT_TRUE(connection.connected());
}

TEST(MouseEvents, ADisconnectedSlotHearsNothing)
{
    Producer producer;
    int heard = 0;
    Connection connection = producer.connectMouseMoved([&](MouseEventInterface&) { ++heard; });
    MouseEvent event(&producer, MouseEventInterface::MouseButton_None, 0, 0, 0);
    producer.emitMouseMoved(event);
    connection.disconnect();
    producer.emitMouseMoved(event);
    EXPECT_EQ(heard, 1);
}

TEST(MouseEvents, TheThreeDMouseRecordsArriveAsTheyWereSent)
{
    Producer producer;
    std::vector<double> heard;
    producer.connectThreedMouseMotionEvent(
        [&](const MouseEventObservableInterface::MotionData& motion) { heard.push_back(motion.rotation[2]); });
    producer.connectThreedMouseMotionEventEnd([&] { heard.push_back(-1); });
    producer.connectThreedMouseButtonActionEvent(
        [&](MouseEventObservableInterface::ButtonActions actions) { heard.push_back(actions.button); });

    MouseEventObservableInterface::MotionData motion;
    motion.rotation[2] = 0.25;
    producer.emitThreedMouseMotionEvent(motion);
    producer.emitThreedMouseMotionEventEnd();
    producer.emitThreedMouseButtonActionEvent({7, true});
    EXPECT_EQ(heard, (std::vector<double>{0.25, -1, 7}));
}
