// A person's input while the engine works: real X events into a real window, the monitor as it is,
// and work made by the test, which gives the application its turn until it is asked to stop.
#include "tests/intern/RealInputFixture.h"

#include <QAction>
#include <algorithm>
#include <iterator>

using namespace velmora::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

namespace {

const std::string Escape = std::to_string(Qt::Key_Escape);

} // namespace

TEST_F(RealInput, APressIsAnnouncedForTheWidgetsAndNothingElse)
{
    window.area->onEvent = [](QEvent& event) { event.ignore(); };
    pressButton(1);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonPress 1 at 50,50 from X"); }));
    processPending();
    releaseButton(1);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonRelease 1 at 50,50 from X"); }));
    processPending();
    Journal pressing;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(pressing), [](const std::string& entry) {
        return entry.find("ressed") != std::string::npos || entry.find("Press") != std::string::npos ||
               entry == "state 1 down";
    });
    // The area from the window system, then its parent as the toolkit goes up.
    EXPECT_THAT(pressing, ElementsAre("state 1 down", "pressed 1 at 50,50 modifiers 0",
                                      "area: MouseButtonPress 1 at 50,50 from X", "state 1 down",
                                      "pressed 1 at 50,50 modifiers 0", "window: MouseButtonPress 1 at 50,50"));
}

TEST_F(RealInput, StartKnowsTheButtonsThatAreHeld)
{
    pressButton(1);
    pressButton(3);
    EXPECT_TRUE(waitUntil([&] { return (QApplication::mouseButtons() & Qt::RightButton) != 0; }));
    monitor.stop();
    journal.clear();
    monitor.start();
    EXPECT_THAT(journal, ElementsAre("state 1 down", "state 2 up", "state 3 down"));
    releaseButton(1);
    releaseButton(3);
    EXPECT_TRUE(waitUntil([&] { return QApplication::mouseButtons() == Qt::NoButton; }));
}

TEST_F(RealInput, EscapeInterruptsAndIsSentAgainOnceTheWorkHasUnwound)
{
    typeKey(XK_Escape);
    EXPECT_TRUE(work());
    // The toolkit first asks whether the key overrides a shortcut, and that is the first event.
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: ShortcutOverride " + Escape); }));
    EXPECT_LT(placeOf("unwound"), placeOf("area: ShortcutOverride " + Escape));
    EXPECT_THAT(journal, Not(Contains("area: KeyPress " + Escape + " from X")));
}

TEST_F(RealInput, AnotherKeyReachesItsWidgetWhileTheEngineWorks)
{
    typeKey(XK_a);
    const std::string key = "area: KeyPress " + std::to_string(Qt::Key_A) + " from X";
    EXPECT_FALSE(work([&] { return hasHappened(key); }));
    EXPECT_LT(placeOf(key), placeOf("unwound"));
}

TEST_F(RealInput, APressWhileTheEngineWorksIsHeardOfButReachesNoWidget)
{
    pressButton(1);
    releaseButton(1);
    EXPECT_FALSE(work([&] { return hasHappened("area: MouseButtonRelease 1 at 50,50 from X"); }));
    EXPECT_THAT(journal, Contains("pressed 1 at 50,50 modifiers 0"));
    EXPECT_THAT(journal, Not(Contains("area: MouseButtonPress 1 at 50,50 from X")));
}

TEST_F(RealInput, AHeldBackPressIsSentAgainAndItsReleaseIsLost)
{
    pressButton(1);
    releaseButton(1);
    workHeldBack([&] { return hasHappened("state 1 up"); });
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonPress 1 at 50,50"); }));
    processPending();
    EXPECT_THAT(journal, Not(Contains("area: MouseButtonRelease 1 at 50,50")));
}

TEST_F(RealInput, AHeldBackReleaseIsSentAgain)
{
    pressButton(1);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonPress 1 at 50,50 from X"); }));
    releaseButton(1);
    workHeldBack([&] { return hasHappened("state 1 up"); });
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonRelease 1 at 50,50"); }));
}

TEST_F(RealInput, OfAHeldBackDoubleClickTheFirstPressIsSentAgain)
{
    QApplication::setDoubleClickInterval(400);
    // Away from where the other tests press, and the way there is not part of what is held back.
    const QPoint place(150, 80);
    window.area->setMouseTracking(true);
    movePointer(window, place);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseMove 0 at 150,80 from X"); }));
    doubleClick(window, place);
    workHeldBack([&] { return std::count(journal.begin(), journal.end(), "state 1 up") == 2; });
    EXPECT_TRUE(waitUntil([&] { return !isKept(); }));
    processPending();
    EXPECT_THAT(journal, Not(Contains("area: MouseButtonDblClick 1 at 150,80")));
    EXPECT_THAT(journal, Contains("area: MouseButtonPress 1 at 150,80"));
}

TEST_F(RealInput, AHeldBackWheelTurnIsSentAgain)
{
    turnWheel(true);
    workHeldBack([&] { return isKept(); });
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: Wheel 120"); }));
    EXPECT_THAT(journal, Contains("wheel 120 at 50,50 orientation 1 held 000 modifiers 0"));
}

TEST_F(RealInput, AShortcutWorksWhileTheEngineWorksAndNotWhileItIsHeldBack)
{
    QAction action(nullptr);
    action.setShortcut(QKeySequence(Qt::Key_F7));
    action.setCheckable(true);
    window.addAction(&action);
    window.area->onEvent = [](QEvent& event) { event.ignore(); };
    typeKey(XK_F7);
    EXPECT_FALSE(work([&] { return action.isChecked(); }));
    const std::string f7 = std::to_string(Qt::Key_F7);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: KeyRelease " + f7 + " from X"); }));
    EXPECT_TRUE(action.isChecked());
    journal.clear();
    typeKey(XK_F7);
    workHeldBack([&] { return isKept(); });
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: ShortcutOverride " + f7); }))
        << ::testing::PrintToString(journal);
    EXPECT_TRUE(action.isChecked());
}

TEST_F(RealInput, AWindowClosedWhileHeldBackStaysOpenAndIsAskedAgain)
{
    bool refused = false;
    window.onEvent = [&](QEvent& event) {
        if (event.type() == QEvent::Close) {
            refused = true;
            event.ignore();
        }
    };
    closeByWindowManager(window);
    workHeldBack([&] { return isKept(); });
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(waitUntil([&] { return refused; }));
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "window: Close"), 1);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(RealInput, ClosingAWindowInterruptsTheWorkLikeEscape)
{
    window.onEvent = [](QEvent& event) { event.ignore(); };
    closeByWindowManager(window);
    EXPECT_TRUE(work());
    EXPECT_TRUE(waitUntil([&] { return hasHappened("window: Close"); }));
    EXPECT_LT(placeOf("unwound"), placeOf("window: Close"));
}

TEST_F(RealInput, TheReceiverDestroyedBeforeItsEventIsSentAgainIsForgotten)
{
    turnWheel(true);
    workHeldBack([&] { return isKept(); });
    ASSERT_TRUE(isKept());
    delete window.area;
    EXPECT_FALSE(isKept());
    typeKey(XK_a);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("window: KeyPress " + std::to_string(Qt::Key_A) + " from X"); }));
    EXPECT_THAT(journal, Not(Contains("area: Wheel 120")));
}

TEST_F(RealInput, TheReceiverMayDestroyItselfWhenItsEventIsSentAgain)
{
    window.area->onEvent = [&](QEvent& event) {
        if (event.type() == QEvent::Wheel) {
            event.accept();
            delete window.area;
        }
    };
    turnWheel(true);
    workHeldBack([&] { return isKept(); });
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: Wheel 120"); }));
    processPending();
    EXPECT_FALSE(isKept());
}

TEST_F(RealInput, TheEventThatTriggersTheResendIsDeliveredOnceThoughTheCopyStartsWork)
{
    window.area->onEvent = [&](QEvent& event) {
        event.accept();
        if (event.type() != QEvent::Wheel)
            return;
        window.area->onEvent = nullptr;
        work([&] { return hasHappened("area: MouseButtonRelease 1 at 50,50 from X"); });
    };
    turnWheel(true);
    workHeldBack([&] { return isKept(); });
    pressButton(1);
    releaseButton(1);
    EXPECT_TRUE(waitUntil([&] { return hasHappened("area: MouseButtonRelease 1 at 50,50 from X"); }));
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "area: Wheel 120"), 1);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "unwound"), 2);
}

TEST_F(RealInput, TwoInterruptionsInARowKeepOneEventEach)
{
    for (const bool up : {true, false}) {
        turnWheel(up);
        workHeldBack([&] { return isKept(); });
        const std::string expected = up ? "area: Wheel 120" : "area: Wheel -120";
        EXPECT_TRUE(waitUntil([&] { return hasHappened(expected); }));
        EXPECT_EQ(std::count(journal.begin(), journal.end(), expected), 1);
    }
}

TEST_F(RealInput, APaintAsTheFirstEventTakesThePlace)
{
    window.area->update();
    workWithEverythingHeldBack([&] { return isKept(); });
    ASSERT_TRUE(isKept());
    EXPECT_EQ(Probe::waiting(monitor), nullptr);
    processPending();
    EXPECT_FALSE(isKept());
}

TEST_F(RealInput, ALoopThatWaitsForEventsReturnsWhenItIsInterrupted)
{
    monitor.stop();
    processPending();
    // The next event is ten seconds away.
    struct Alarm : QObject {
        void timerEvent(QTimerEvent*) override {}
    } alarm;
    alarm.startTimer(10000);
    QElapsedTimer clock;
    clock.start();
    monitor.interruptEventProcessing();
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_LT(clock.elapsed(), 5000);
}

TEST_F(RealInput, IdleIsAnnouncedOnceAfterTheWorkIsOver)
{
    QEvent activity(QEvent::User);
    QCoreApplication::sendEvent(window.area, &activity);
    journal.clear();
    typeKey(XK_a);
    const std::string key = "area: KeyRelease " + std::to_string(Qt::Key_A) + " from X";
    EXPECT_FALSE(work([&] { return hasHappened(key); }));
    EXPECT_THAT(journal, Not(Contains("idle")));
    EXPECT_TRUE(waitUntil([&] { return hasHappened("idle"); }));
    EXPECT_LT(placeOf("not busy"), placeOf("idle"));
}
