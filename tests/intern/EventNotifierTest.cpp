// What the engine and the listeners hear of an event.

#include "tests/intern/MonitorFixture.h"
#include "tests/support/WheelEvents.h"

#include <QCloseEvent>
#include <QShortcutEvent>
#include <QSpinBox>
#include <QWheelEvent>

using namespace velmora::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

namespace {

class EventNotifier : public MonitorTest {
protected:
    EventNotifier() { watch(); }

    /// What the listeners heard of the event besides the state of buttons.
    Journal heard(QEvent& event, QObject& receiver)
    {
        journal.clear();
        QCoreApplication::sendEvent(&receiver, &event);
        Journal entries;
        for (const std::string& entry : journal)
            if (entry.find(": ") == std::string::npos && entry.compare(0, 5, "state") != 0)
                entries.push_back(entry);
        return entries;
    }
};

} // namespace

TEST_F(EventNotifier, MouseEventsCarryButtonPositionAndModifiers)
{
    QMouseEvent press =
        mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton, QPoint(5, 6), Qt::ControlModifier | Qt::AltModifier);
    EXPECT_THAT(heard(press, widget), ElementsAre("pressed 1 at 5,6 modifiers 6"));
    QMouseEvent release = mouseEvent(QEvent::MouseButtonRelease, Qt::RightButton, QPoint(7, 8));
    EXPECT_THAT(heard(release, widget), ElementsAre("released 3 at 7,8 modifiers 0"));
    QMouseEvent twice = mouseEvent(QEvent::MouseButtonDblClick, Qt::MiddleButton, QPoint(1, 2), Qt::ShiftModifier);
    EXPECT_THAT(heard(twice, widget), ElementsAre("double pressed 2 at 1,2 modifiers 1"));
}

TEST_F(EventNotifier, AMoveCarriesNoButton)
{
    QMouseEvent move(QEvent::MouseMove, QPoint(9, 8), QPoint(), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    EXPECT_THAT(heard(move, widget), ElementsAre("moved 0 at 9,8 modifiers 0"));
}

TEST_F(EventNotifier, KeysCarryTheToolkitsCodeAndModifiers)
{
    QKeyEvent release = keyEvent(QEvent::KeyRelease, Qt::Key_Q, Qt::AltModifier);
    EXPECT_THAT(heard(release, widget), ElementsAre("key up " + std::to_string(Qt::Key_Q) + " modifiers 4"));
    QKeyEvent override = keyEvent(QEvent::ShortcutOverride, Qt::Key_Q, Qt::ShiftModifier);
    EXPECT_THAT(heard(override, widget), ElementsAre("key down " + std::to_string(Qt::Key_Q) + " modifiers 1"));
    QKeyEvent press = keyEvent(QEvent::KeyPress, Qt::Key_Q);
    EXPECT_THAT(heard(press, widget), Contains("key down " + std::to_string(Qt::Key_Q) + " modifiers 0"));
}

TEST_F(EventNotifier, AShortcutIsOneKeyPressOfItsFirstKeyWithoutModifiers)
{
    const int packed = int(Qt::CTRL) | int(Qt::Key_S);
    QShortcutEvent shortcut(QKeySequence(packed, int(Qt::Key_X)), 1);
    EXPECT_THAT(heard(shortcut, widget), ElementsAre("key down " + std::to_string(packed) + " modifiers 0"));
}

TEST_F(EventNotifier, ClosingAWindowIsAPressOfEscape)
{
    QCloseEvent close;
    EXPECT_THAT(heard(close, widget), ElementsAre("key down " + std::to_string(Qt::Key_Escape) + " modifiers 0"));
}

TEST_F(EventNotifier, AWheelTurnGoesToTheSignalWithEverythingItHolds)
{
    QWheelEvent vertical = wheelEvent(QPoint(3, 4), QPoint(30, 40), -240, Qt::LeftButton | Qt::RightButton,
                                      Qt::ShiftModifier, Qt::Vertical);
    EXPECT_THAT(heard(vertical, widget), ElementsAre("wheel -240 at 3,4 orientation 1 held 101 modifiers 1"));
    QWheelEvent horizontal =
        wheelEvent(QPoint(3, 4), QPoint(30, 40), 120, Qt::MiddleButton, Qt::NoModifier, Qt::Horizontal);
    EXPECT_THAT(heard(horizontal, widget), ElementsAre("wheel 120 at 3,4 orientation 0 held 010 modifiers 0"));
}

TEST_F(EventNotifier, ATimerOfAValueWidgetAnnouncesItsChange)
{
    QSpinBox spinBox;
    QTimerEvent timer(12345);
    EXPECT_THAT(heard(timer, spinBox), ElementsAre("widget change"));
    EXPECT_THAT(heard(timer, widget), Not(Contains("widget change")));
}

TEST_F(EventNotifier, TheSourceOfTheRecordsIsTheMonitor)
{
    using namespace velmora::sdk::integration;
    MouseEventObservableInterface* source = nullptr;
    struct Listener : MouseEventListenerInterface {
        explicit Listener(MouseEventObservableInterface*& seen) : m_seen(seen) {}
        void mouseMoved(MouseEventInterface&, MouseEventObservableInterface& observable) override
        {
            m_seen = &observable;
        }
        void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
        void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override {}
        void buttonDoublePressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
        MouseEventObservableInterface*& m_seen;
    } listener(source);
    monitor.addMouseListener(&listener);
    QMouseEvent move = mouseEvent(QEvent::MouseMove, Qt::NoButton);
    QCoreApplication::sendEvent(&widget, &move);
    monitor.removeMouseListener(&listener);
    EXPECT_EQ(source, static_cast<MouseEventObservableInterface*>(&monitor));
}
