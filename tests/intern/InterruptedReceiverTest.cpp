// The receiver of the event that interrupted the engine: it may be gone, going, or a window that closes.
#include "tests/intern/InterruptedEventFixture.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QMainWindow>
#include <memory>

using namespace velmora::test;
using ::testing::ElementsAre;

TEST_F(InterruptedEvent, ReceiverDestroyedBeforeFreesTheCopyAndNothingIsSent)
{
    auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, *doomed);
    ASSERT_NE(Probe::waiting(monitor), nullptr);
    doomed.reset();
    EXPECT_EQ(Probe::waiting(monitor), nullptr);
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
}

TEST_F(InterruptedEvent, AfterTheReceiverWasDestroyedThePlaceIsFree)
{
    auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
    beginInterruption();
    sendKey(*doomed, Qt::Key_A);
    doomed.reset();
    // What its destruction itself sends may take the place; here it is free again or taken by that.
    unwind();
    sendTrigger(other);
    beginInterruption();
    sendKey(widget, Qt::Key_B);
    unwind();
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + B, "other: User"));
}

TEST_F(InterruptedEvent, ReceiverDestroyedDuringItsDeliveryIsLeftAlone)
{
    const QEvent::Type types[] = {QEvent::KeyRelease, QEvent::Close};
    for (const QEvent::Type type : types) {
        auto* doomed = new Receiver<QMainWindow>("doomed", journal); // deletes itself below
        doomed->onEvent = [doomed](QEvent&) { delete doomed; };
        QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
        QCloseEvent close;
        QEvent& event = type == QEvent::Close ? static_cast<QEvent&>(close) : key;
        interruptWith(event, *doomed);
        sendTrigger(other);
        EXPECT_EQ(received().size(), 2u);
        EXPECT_EQ(journal.back(), "other: User");
    }
}

TEST_F(InterruptedEvent, AReceiverOfTheTriggerDestroyedByTheCopyGetsNothing)
{
    auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
    widget.onEvent = [&](QEvent&) { doomed.reset(); };
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    QEvent event(QEvent::User);
    event.ignore();
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(doomed.get(), &event));
    EXPECT_TRUE(event.isAccepted()) << "the toolkit would go on to the parent of what is no more";
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A));
    EXPECT_EQ(Probe::parked(monitor), nullptr);
}

TEST_F(InterruptedEvent, AMainWindowsClosingEndsTheApplication)
{
    Receiver<QMainWindow> window("window", journal);
    QCloseEvent close;
    interruptWith(close, window);
    QApplication::setQuitOnLastWindowClosed(true);
    sendTrigger(other);
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

TEST_F(InterruptedEvent, AMainWindowThatRefusesToCloseDoesNot)
{
    Receiver<QMainWindow> window("window", journal);
    window.onEvent = [](QEvent& event) { event.ignore(); };
    QCloseEvent close;
    interruptWith(close, window);
    QApplication::setQuitOnLastWindowClosed(true);
    sendTrigger(other);
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST_F(InterruptedEvent, ADialogsClosingDoesNot)
{
    Receiver<QDialog> dialog("dialog", journal);
    QCloseEvent close;
    interruptWith(close, dialog);
    QApplication::setQuitOnLastWindowClosed(true);
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("dialog: Close", "other: User"));
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST_F(InterruptedEvent, WhatAReceiverSendsItselfWhileItIsDestroyedDoesNotSendTheCopy)
{
    QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
    interruptWith(key, widget);
    for (const QEvent::Type type : {QEvent::ChildRemoved, QEvent::Hide, QEvent::HideToParent, QEvent::FocusOut,
                                    QEvent::WinIdChange, QEvent::Destroy})
        sendPlain(widget, type);
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
    sendPlain(other, QEvent::Hide);
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
}
