// What happens to every event on its way, and in which order.

#include "tests/intern/MonitorFixture.h"

#include "integration/toolkit/EventTransport.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"

#include <QApplication>
#include <QCloseEvent>
#include <boost/make_shared.hpp>
#include <typeinfo>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using velmora::sdk::integration::toolkit::isOnlyTransport;
using velmora::testing::EngineProbe;

namespace {

class EventFilter : public MonitorTest {};

const std::string A = std::to_string(Qt::Key_A);

} // namespace

TEST_F(EventFilter, BeforeStartAndAfterStopNothingIsWatched)
{
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_THAT(journal, ElementsAre("widget: KeyRelease " + A));
    EXPECT_TRUE(monitor.start());
    EXPECT_TRUE(monitor.stop());
    journal.clear();
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_THAT(journal, ElementsAre("widget: KeyRelease " + A));
}

TEST_F(EventFilter, TheEndOfTheEnginesWorkIsToldFromStartToStop)
{
    const auto work = [] {
        EngineProbe::setBusy(true);
        EngineProbe::setBusy(false);
    };
    watch();
    work();
    EXPECT_THAT(journal, ElementsAre("not busy"));
    monitor.stop();
    journal.clear();
    work();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(EventFilter, StartAfterStopWatchesAgain)
{
    monitor.start();
    monitor.stop();
    watch();
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_THAT(journal, ElementsAre("key up " + A + " modifiers 0", "widget: KeyRelease " + A));
}

TEST_F(EventFilter, StartAnnouncesAllThreeButtonsInOrder)
{
    monitor.start();
    EXPECT_THAT(journal, ElementsAre("state 1 up", "state 2 up", "state 3 up"));
}

TEST_F(EventFilter, AnEventIsHeardOfBeforeItIsDelivered)
{
    watch();
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    sendSpontaneous(widget, press);
    EXPECT_THAT(journal, ElementsAre("state 1 down", "new, not visible", "pressed 1 at 3,4 modifiers 0",
                                     "widget: MouseButtonPress 1 at 3,4 from X"));
}

TEST_F(EventFilter, PressDoubleClickAndReleaseTellTheStateOfTheButton)
{
    watch();
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::RightButton);
    QMouseEvent twice = mouseEvent(QEvent::MouseButtonDblClick, Qt::MiddleButton);
    QMouseEvent release = mouseEvent(QEvent::MouseButtonRelease, Qt::XButton1);
    QMouseEvent move = mouseEvent(QEvent::MouseMove, Qt::NoButton);
    for (QMouseEvent* event : {&press, &twice, &release, &move})
        QCoreApplication::sendEvent(&widget, event);
    Journal states;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(states),
                 [](const std::string& entry) { return entry.compare(0, 5, "state") == 0; });
    EXPECT_THAT(states, ElementsAre("state 3 down", "state 2 down", "state 0 up"));
}

TEST_F(EventFilter, AnEventThatOnlyPretendsToBeOfTheMouseThrows)
{
    watch();
    QEvent fake(QEvent::MouseButtonPress);
    EXPECT_THROW(Probe::filter(monitor).eventFilter(&widget, &fake), std::bad_cast);
}

TEST_F(EventFilter, TheStateOfButtonsIsToldEvenWhileInterrupting)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    QCoreApplication::sendEvent(&widget, &press);
    EXPECT_THAT(journal, ElementsAre("state 1 down"));
}

TEST_F(EventFilter, OnlyEventsFromTheWindowSystemAreAnnouncedAsNew)
{
    watch();
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_THAT(journal, ElementsAre("widget: User"));
    QObject object;
    sendSpontaneous(object, event);
    EXPECT_EQ(journal.back(), "new, not visible");
    widget.setAttribute(Qt::WA_WState_Visible, true);
    sendSpontaneous(widget, event);
    widget.setAttribute(Qt::WA_WState_Visible, false);
    EXPECT_EQ(journal[2], "new, visible");
}

TEST_F(EventFilter, AnEventOfTheToolkitsWindowObjectIsOnlyOnItsWay)
{
    // The toolkit's window object, where it has one, gets the exposure before the widget is painted.
    struct Spy : QObject {
        bool eventFilter(QObject* receiver, QEvent*) override
        {
            if (isOnlyTransport(receiver))
                window = receiver;
            return false;
        }
        QObject* window = nullptr;
    } spy;
    qApp->installEventFilter(&spy);
    ASSERT_TRUE(showAndWait(widget));
    qApp->removeEventFilter(&spy);
    EXPECT_FALSE(isOnlyTransport(&widget));
    EXPECT_FALSE(isOnlyTransport(qApp));
    if (!spy.window)
        GTEST_SKIP() << "This toolkit has none.";
    monitor.busy = true;
    monitor.interrupting = true;
    journal.clear();
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    EXPECT_FALSE(Probe::filter(monitor).eventFilter(spy.window, &press));
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(EventFilter, WhileInterruptingTheEngineHearsOfNothing)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(EventFilter, AnEventThatMakesAListenerAskForAStopIsItselfHeldBack)
{
    watch();
    monitor.busy = true;
    listening.onKeyPressed = [&] { monitor.interrupting = true; };
    QKeyEvent key = keyEvent(QEvent::ShortcutOverride, Qt::Key_A);
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &key));
    EXPECT_THAT(journal, ElementsAre("key down " + A + " modifiers 0"));
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
}

TEST_F(EventFilter, AStopAskedForBetweenTheTwoQuestionsCounts)
{
    watch();
    monitor.busy = true;
    monitor.timesAsked = 0;
    monitor.whenAsked = [&](int before) { monitor.interrupting = before == 1; };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    // The engine still heard of it.
    EXPECT_THAT(journal, ElementsAre("key up " + A + " modifiers 0"));
    EXPECT_EQ(monitor.timesAsked, 2);
}

TEST_F(EventFilter, WhileInterruptingEveryTypeIsSwallowed)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    const QEvent::Type types[] = {QEvent::Paint, QEvent::Timer, QEvent::User, QEvent::ChildAdded, QEvent::Resize};
    for (const QEvent::Type type : types) {
        QTimerEvent event(1);
        QEvent plain(type);
        QEvent& sent = type == QEvent::Timer ? event : plain;
        EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &sent)) << "type " << type;
    }
    EXPECT_THAT(received(), IsEmpty());
}

TEST_F(EventFilter, ASwallowedEventIsAcceptedButAClosingIgnored)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    key.ignore();
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_TRUE(key.isAccepted());
    // Not only the first one.
    for (int time = 0; time < 2; ++time) {
        QCloseEvent close;
        QCoreApplication::sendEvent(&widget, &close);
        EXPECT_FALSE(close.isAccepted());
    }
}

TEST_F(EventFilter, ANetworkSourceStillGetsItsChildren)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    QObject source;
    source.setObjectName(QLatin1String("velmora_usage_report"));
    QObject child(&source);
    QObject other;
    QEvent childAdded(QEvent::ChildAdded);
    auto& filter = Probe::filter(monitor);
    EXPECT_FALSE(filter.eventFilter(&source, &childAdded));
    EXPECT_FALSE(filter.eventFilter(&child, &childAdded));
    EXPECT_TRUE(filter.eventFilter(&other, &childAdded));
    // It took the place of the first event all the same.
    EXPECT_TRUE(filter.hasInterruptedEvent());
    EXPECT_EQ(Probe::waiting(monitor), nullptr);
}

TEST_F(EventFilter, ANetworkSourceGetsNothingElse)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    QObject source;
    source.setObjectName(QLatin1String("velmora_usage_report"));
    QEvent event(QEvent::User);
    QEvent removed(QEvent::ChildRemoved);
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&source, &event));
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&source, &removed));
}

TEST_F(EventFilter, OneEventIsDiscardedOnDemand)
{
    watch();
    monitor.discardNext();
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_THAT(received(), IsEmpty());
    EXPECT_FALSE(monitor.isDiscarding());
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_THAT(received(), ElementsAre("widget: User"));
}

TEST_F(EventFilter, AnEventForAStopButtonPassesTheDiscardAndClearsIt)
{
    watch();
    monitor.registerStopButton(boost::make_shared<FakeStopButton>(&widget));
    monitor.discardNext();
    EXPECT_TRUE(monitor.isStopButton(&widget));
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_THAT(received(), ElementsAre("widget: User"));
    EXPECT_FALSE(monitor.isDiscarding());
}

TEST_F(EventFilter, TheDiscardGoesBeforeTheInterruption)
{
    watch();
    monitor.busy = true;
    monitor.interrupting = true;
    monitor.discardNext();
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
    QCoreApplication::sendEvent(&widget, &key);
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
}

TEST_F(EventFilter, TheNumberThatStandsForTheMonitorIsItsAddress)
{
    const Monitor& plain = monitor;
    EXPECT_EQ(static_cast<long>(plain), reinterpret_cast<long>(&plain));
}
