// The event that triggers the sending again waits meanwhile: it is delivered once, whatever the copy does.
#include "tests/intern/InterruptedEventFixture.h"

#include <QCloseEvent>
#include <algorithm>
#include <memory>
#include <stdexcept>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(InterruptedEvent, TheParkedEventIsDeliveredOnceWhenTheCopyStartsEngineWork)
{
    widget.onEvent = [&](QEvent&) {
        monitor.busy = true;
        monitor.processWhileBusy_Internal();
        journal.push_back("worked");
        monitor.busy = false;
    };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    QEvent event(QEvent::User);
    sendSpontaneous(other, event);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: User"));
    EXPECT_EQ(journal.back(), "worked");
    EXPECT_FALSE(event.spontaneous());
}

TEST_F(InterruptedEvent, TheParkedEventMayPumpItself)
{
    const auto pump = [&](QEvent&) {
        monitor.busy = true;
        monitor.processWhileBusy_Internal();
        monitor.busy = false;
    };
    widget.onEvent = pump;
    other.onEvent = pump;
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: User"));
}

TEST_F(InterruptedEvent, AParkedEventWhoseReceiverIsGoneIsDropped)
{
    auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
    widget.onEvent = [&](QEvent&) {
        doomed.reset();
        monitor.processWhileBusy_Internal();
    };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    QEvent event(QEvent::User);
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(doomed.get(), &event));
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A));
}

TEST_F(InterruptedEvent, AnEventParkedInsideAnotherLosesNeither)
{
    widget.onEvent = [&](QEvent& event) {
        widget.onEvent = nullptr;
        // Interrupted once more during the handling of the copy, without a turn of the application.
        beginInterruption();
        sendKey(widget, Qt::Key_B);
        unwind();
        sendTrigger(widget);
        EXPECT_EQ(Probe::dispatching(monitor), &event) << "it is still being sent";
    };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    sendTrigger(other);
    EXPECT_THAT(received(),
                ElementsAre("widget: KeyRelease " + A, "widget: KeyRelease " + B, "widget: User", "other: User"));
}

TEST_F(InterruptedEvent, WhileOneWaitsTheApplicationGetsNoTurn)
{
    QCoreApplication::postEvent(&other, new QEvent(QEvent::User)); // the queue owns it
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    monitor.processWhileBusy_Internal();
    EXPECT_THAT(received(), IsEmpty());
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
    unwind();
    monitor.processWhileBusy_Internal();
    EXPECT_THAT(received(), IsEmpty());
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: User"));
}

TEST_F(InterruptedEvent, WithoutOneTheApplicationGetsItsTurn)
{
    QCoreApplication::postEvent(&other, new QEvent(QEvent::User)); // the queue owns it
    monitor.busy = true;
    monitor.processWhileBusy_Internal();
    EXPECT_THAT(received(), ElementsAre("other: User"));
}

TEST_F(InterruptedEvent, AnExceptionDuringItsDeliveryPassesAndLeavesNothingParked)
{
    widget.onEvent = [](QEvent&) { throw std::runtime_error("refused"); };
    // Not a key: the toolkit itself loses a guarded pointer when a key's handler throws.
    QCloseEvent close;
    interruptWith(close, widget);
    EXPECT_THROW(sendTrigger(other), std::runtime_error);
    EXPECT_EQ(Probe::parked(monitor), nullptr);
    EXPECT_NE(Probe::dispatching(monitor), nullptr);
    widget.onEvent = nullptr;
    // The next one is sent as if nothing had been, and ends that state.
    QKeyEvent next = keyEvent(QEvent::KeyRelease, Qt::Key_B);
    interruptWith(next, widget);
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + B, "other: User"));
    EXPECT_EQ(Probe::dispatching(monitor), nullptr);
}

TEST_F(InterruptedEvent, OfTwoCopiesOneInsideTheOtherWhoseHandlersThrowTheOuterOneCountsAsBeingSent)
{
    const QEvent* outer = nullptr;
    other.onEvent = [](QEvent&) { throw std::runtime_error("inner"); };
    widget.onEvent = [&](QEvent& event) {
        outer = &event;
        QCloseEvent inner;
        interruptWith(inner, other);
        EXPECT_THROW(sendTrigger(widget), std::runtime_error);
        throw std::runtime_error("outer");
    };
    QCloseEvent close;
    interruptWith(close, widget);
    EXPECT_THROW(sendTrigger(other), std::runtime_error);
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(Probe::dispatching(monitor), outer);
    EXPECT_EQ(Probe::parked(monitor), nullptr);
}

TEST_F(InterruptedEvent, AnEventDeliveredEarlyAndIgnoredReachesItsParentOnce)
{
    Receiver<QWidget> parent{"parent", journal};
    Receiver<QWidget>* const child = new Receiver<QWidget>{"child", journal};
    child->setParent(&parent);
    child->onEvent = parent.onEvent = [](QEvent& event) { event.ignore(); };
    widget.onEvent = [this](QEvent& event) {
        if (event.type() == QEvent::KeyRelease)
            monitor.processWhileBusy_Internal();
    };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    sendKey(*child, Qt::Key_B);
    const Journal all = received();
    EXPECT_EQ(std::count(all.begin(), all.end(), "child: KeyRelease " + B), 1);
    EXPECT_EQ(std::count(all.begin(), all.end(), "parent: KeyRelease " + B), 1);
}

TEST_F(InterruptedEvent, AClosingDeliveredEarlyAndRefusedStaysRefused)
{
    widget.onEvent = [this](QEvent&) { monitor.processWhileBusy_Internal(); };
    other.onEvent = [](QEvent& event) { event.ignore(); };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    QCloseEvent close;
    QCoreApplication::sendEvent(&other, &close);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A, "other: Close"));
    EXPECT_FALSE(close.isAccepted());
}

TEST_F(InterruptedEvent, ACopyWhoseHandlerThrewIsForgottenWithTheNextOne)
{
    widget.onEvent = [](QEvent&) { throw std::runtime_error("refused"); };
    QCloseEvent close;
    interruptWith(close, widget);
    EXPECT_THROW(sendTrigger(other), std::runtime_error);
    const QEvent* counted = nullptr;
    const QEvent* next = nullptr;
    widget.onEvent = [&](QEvent& event) {
        widget.onEvent = nullptr;
        next = &event;
        QCloseEvent inner;
        interruptWith(inner, widget);
        sendTrigger(widget);
        counted = Probe::dispatching(monitor);
    };
    interruptWith(close, widget);
    sendTrigger(other);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(counted, next);
    EXPECT_EQ(Probe::dispatching(monitor), nullptr);
}
