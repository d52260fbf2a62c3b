// Keeping the event that interrupted the engine, and sending it again once the work has unwound.
#include "tests/intern/InterruptedEventFixture.h"
#include "tests/support/Wait.h"
#include "tests/support/WheelEvents.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QShortcutEvent>
#include <QWheelEvent>
#include <memory>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(InterruptedEvent, IsSentAgainBeforeTheEventThatTriggersIt)
{
    // Of a press, Qt 4 would first ask whether it overrides a shortcut.
    QKeyEvent key(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, QString("a"), true, 2);
    QString text;
    bool isAutoRepeat = false;
    int count = 0;
    bool wasSpontaneous = true;
    widget.onEvent = [&](QEvent& event) {
        if (event.type() != QEvent::KeyRelease)
            return;
        wasSpontaneous = event.spontaneous();
        const QKeyEvent& seen = static_cast<QKeyEvent&>(event);
        text = seen.text();
        isAutoRepeat = seen.isAutoRepeat();
        count = seen.count();
    };
    beginInterruption();
    sendSpontaneous(widget, key);
    EXPECT_THAT(received(), IsEmpty());
    unwind();
    sendTrigger(other);
    const Journal entries = received();
    ASSERT_GE(entries.size(), 2u);
    EXPECT_EQ(entries[entries.size() - 2], "widget: KeyRelease " + A);
    EXPECT_EQ(entries.back(), "other: User");
    EXPECT_FALSE(wasSpontaneous);
    EXPECT_EQ(text, QString("a"));
    EXPECT_TRUE(isAutoRepeat);
    EXPECT_EQ(count, 2);
}

TEST_F(InterruptedEvent, OnlyTheFirstOneIsKept)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    sendKey(widget, Qt::Key_B);
    unwind();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: User"));
}

TEST_F(InterruptedEvent, WaitsWhileTheEngineIsBusy)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    monitor.interrupting = false;
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
    unwind();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User", "widget: KeyRelease " + A, "other: User"));
}

TEST_F(InterruptedEvent, IsSentOnce)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    unwind();
    sendTrigger(other);
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
}

TEST_F(InterruptedEvent, TheEngineHearsOfItWhenItIsSentAgain)
{
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    sendTrigger(other);
    EXPECT_THAT(journal, ElementsAre("key up " + A + " modifiers 0", "widget: KeyRelease " + A, "other: User"));
}

TEST_F(InterruptedEvent, ANewInterruptionKeepsAnew)
{
    for (const int key : {Qt::Key_A, Qt::Key_B}) {
        beginInterruption();
        sendKey(widget, key);
        unwind();
        sendTrigger(other);
    }
    EXPECT_THAT(received(),
                ElementsAre("widget: KeyRelease " + A, "other: User", "widget: KeyRelease " + B, "other: User"));
}

TEST_F(InterruptedEvent, AShortcutComesBackAsAKeyPress)
{
    QShortcutEvent shortcut(QKeySequence(Qt::CTRL + Qt::Key_S), 1);
    interruptWith(shortcut, widget);
    sendTrigger(other);
    const Journal entries = received();
    ASSERT_GE(entries.size(), 2u);
    EXPECT_EQ(entries[entries.size() - 2], "widget: KeyPress " + std::to_string(Qt::CTRL + Qt::Key_S));
}

TEST_F(InterruptedEvent, APaintAsTheFirstTakesThePlaceAndNothingIsSentAgain)
{
    beginInterruption();
    QEvent paint(QEvent::Paint);
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &paint));
    sendKey(widget, Qt::Key_A);
    unwind();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
    EXPECT_EQ(Probe::dispatching(monitor), nullptr);
    EXPECT_FALSE(Probe::isWatching(monitor));
}

TEST_F(InterruptedEvent, ATimerOfAPlainWidgetAsTheFirstTakesThePlaceToo)
{
    QTimerEvent timer(12345);
    interruptWith(timer, widget);
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
}

TEST_F(InterruptedEvent, IsRecognisedOnlyAsItselfAndOnlyDuringItsDelivery)
{
    auto& filter = Probe::filter(monitor);
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    bool recognised = false;
    const QEvent* copy = nullptr;
    widget.onEvent = [&](QEvent& event) {
        copy = &event;
        recognised = filter.isDispatchingInterruptedEvent(event) && !filter.isDispatchingInterruptedEvent(key);
    };
    interruptWith(key, widget);
    ASSERT_NE(Probe::waiting(monitor), nullptr);
    EXPECT_FALSE(filter.isDispatchingInterruptedEvent(*Probe::waiting(monitor)));
    sendTrigger(other);
    EXPECT_TRUE(recognised);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(Probe::dispatching(monitor), copy);
}

TEST_F(InterruptedEvent, IsDeliveredThoughAStopIsWantedAgain)
{
    QWheelEvent wheel = wheelEvent(QPoint(), QPoint(), 120, Qt::NoButton, Qt::NoModifier, Qt::Vertical);
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    for (QEvent* event : {static_cast<QEvent*>(&wheel), static_cast<QEvent*>(&key), static_cast<QEvent*>(&press)}) {
        interruptWith(*event, widget);
        monitor.interrupting = true;
        sendTrigger(other);
        EXPECT_EQ(received().size(), 1u) << describe(*event);
        // The trigger itself took the place; it cannot be copied.
        unwind();
        sendTrigger(other);
    }
}

TEST_F(InterruptedEvent, ItDoesNotUseUpTheDiscard)
{
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    monitor.discardNext();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A));
    EXPECT_FALSE(monitor.isDiscarding());
}

TEST_F(InterruptedEvent, AMousePressTellsTheStateAgainButIsNotNew)
{
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    beginInterruption();
    sendSpontaneous(widget, press);
    EXPECT_THAT(journal, ElementsAre("state 1 down", "new, not visible"));
    unwind();
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(journal, ElementsAre("state 1 down", "pressed 1 at 3,4 modifiers 0",
                                     "widget: MouseButtonPress 1 at 3,4", "other: User"));
}

namespace {

class RequestCounter : public QWidget {
public:
    int updates = 0;
    int layouts = 0;

protected:
    bool event(QEvent* event) override
    {
        updates += event->type() == QEvent::UpdateRequest;
        layouts += event->type() == QEvent::LayoutRequest;
        return QWidget::event(event);
    }
};

} // namespace

TEST_F(InterruptedEvent, WhatTheToolkitPostsOnlyOnceIsPostedAgain)
{
    RequestCounter counter;
    QPointer<QObject> doomed = new QObject;
    beginInterruption();
    doomed->deleteLater();
    QCoreApplication::sendPostedEvents(doomed, QEvent::DeferredDelete);
    sendPlain(counter, QEvent::UpdateRequest);
    sendPlain(counter, QEvent::LayoutRequest);
    EXPECT_EQ(counter.updates + counter.layouts, 0);
    EXPECT_FALSE(doomed.isNull());
    unwind();
    Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
    EXPECT_TRUE(waitUntil([&] { return doomed.isNull() && counter.updates > 0 && counter.layouts > 0; }));
    EXPECT_EQ(counter.updates, 1);
    EXPECT_EQ(counter.layouts, 1);
}

TEST_F(InterruptedEvent, AWindowResizedWhileEventsAreHeldBackLaysItsContentsOutAfterwards)
{
    QWidget window;
    QWidget* const contents = new QWidget(&window);       // the window's
    QHBoxLayout* const layout = new QHBoxLayout(&window); // the window's
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(contents);
    window.resize(200, 150);
    EXPECT_TRUE(showAndWait(window));
    EXPECT_TRUE(waitUntil([&] { return contents->width() == 200; }));
    beginInterruption();
    window.resize(500, 150);
    processPending();
    EXPECT_EQ(contents->width(), 200);
    unwind();
    Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
    EXPECT_TRUE(waitUntil([&] { return contents->width() == 500; }));
}

TEST_F(InterruptedEvent, AButtonWhoseReleaseIsKeptIsClickedByItsCopy)
{
    QPushButton button;
    button.setCheckable(true);
    button.setDown(true);
    beginInterruption();
    QMouseEvent release(QEvent::MouseButtonRelease, button.rect().center(), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &release);
    unwind();
    Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
    EXPECT_TRUE(waitUntil([&] { return !button.isDown(); }));
    EXPECT_TRUE(button.isChecked());
}

TEST_F(InterruptedEvent, ACopyThatStillWaitsOutlivesTheMonitor)
{
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    std::unique_ptr<QEvent> copy;
    {
        SteeredMonitor second;
        second.busy = true;
        second.interrupting = true;
        EXPECT_TRUE(Probe::filter(second).eventFilter(&widget, &key));
        copy.reset(Probe::waiting(second));
    }
    // Freed here; a monitor that frees it as well would be found out by the allocator.
    EXPECT_EQ(describe(*copy), "KeyRelease " + A);
}

TEST_F(InterruptedEvent, StopLeavesItWaitingAndStartSendsIt)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    monitor.stop();
    unwind();
    sendTrigger(other);
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
    monitor.start();
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: User"));
}
