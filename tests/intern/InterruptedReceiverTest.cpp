// The receiver of the event that interrupted the engine: it may be gone, going, or a window that closes.
#include "tests/intern/InterruptedEventFixture.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

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

TEST_F(InterruptedEvent, AListenerMayDestroyTheReceiverAndAskForTheStop)
{
    auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
    monitor.busy = true;
    listening.onKeyPressed = [&] {
        doomed.reset();
        monitor.interrupting = true;
    };
    QKeyEvent key = keyEvent(QEvent::KeyPress, Qt::Key_Escape);
    key.ignore();
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(doomed.get(), &key));
    EXPECT_TRUE(key.isAccepted()) << "or the toolkit would ask its parent";
    EXPECT_EQ(Probe::waiting(monitor), nullptr);
    unwind();
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(received(), ElementsAre("other: User"));
}

TEST_F(InterruptedEvent, AnyListenerMayDestroyTheReceiver)
{
    struct Case {
        const char* name;
        std::function<boost::signals2::connection(std::function<void()>)> connect;
    };
    const Case cases[] = {
        {"mouse state",
         [&](std::function<void()> act) {
             return monitor.connectMouseButtonStateChanged([act](auto, bool) { act(); });
         }},
        {"new event",
         [&](std::function<void()> act) { return monitor.connectProcessingNewEvent([act](const auto&) { act(); }); }},
    };
    for (const Case& oneCase : cases) {
        auto doomed = std::make_unique<Receiver<QWidget>>("doomed", journal);
        const boost::signals2::scoped_connection connection = oneCase.connect([&] { doomed.reset(); });
        QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
        sendSpontaneous(*doomed, press);
        EXPECT_EQ(doomed, nullptr) << oneCase.name;
        EXPECT_THAT(received(), ::testing::IsEmpty()) << oneCase.name;
    }
}

TEST_F(InterruptedEvent, TheMoveThatTheToolkitSendsWhenAWidgetGoesFromUnderThePointerDoesNotSendItsCopy)
{
    QWidget window;
    window.setGeometry(100, 100, 200, 200);
    class Target : public QWidget {
    public:
        using QWidget::QWidget;
        int* taken = nullptr;
        bool event(QEvent* event) override
        {
            *taken += event->type() == QEvent::KeyRelease;
            return QWidget::event(event);
        }
    };
    int taken = 0;
    for (const bool isPlain : {true, false}) {
        QWidget* const doomed = isPlain ? new QWidget(&window) : new Target(&window); // deleted below
        if (!isPlain)
            static_cast<Target*>(doomed)->taken = &taken;
        doomed->setGeometry(0, 0, 200, 200);
        doomed->setMouseTracking(true);
        window.setMouseTracking(true);
        EXPECT_TRUE(showAndWait(window));
        doomed->show();
        movePointer(window, QPoint(100, 100));
        EXPECT_TRUE(waitUntil([&] { return doomed->underMouse(); }));
        QKeyEvent key = keyEvent(QEvent::KeyRelease, Qt::Key_A);
        interruptWith(key, *doomed);
        bool sentToDying = false;
        struct Watch : QObject {
            QObject* dying = nullptr;
            bool* seen = nullptr;
            bool eventFilter(QObject* receiver, QEvent* event) override
            {
                *seen = *seen || (receiver == dying && event->type() == QEvent::KeyRelease);
                return false;
            }
        } watch;
        watch.dying = doomed;
        watch.seen = &sentToDying;
        qApp->installEventFilter(&watch);
        delete doomed;
        qApp->removeEventFilter(&watch);
        EXPECT_FALSE(sentToDying) << (isPlain ? "plain" : "of a class of its own");
        EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
        EXPECT_EQ(taken, 0);
    }
}

TEST_F(InterruptedEvent, WaitsUntilAllHaveHeardThatTheEngineIsNoLongerBusy)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    unwind();
    bool wasSentMeanwhile = false;
    const boost::signals2::scoped_connection connection = monitor.connectEngineIsNoLongerBusy([&] {
        sendTrigger(other); // as hiding a progress bar does
        wasSentMeanwhile = !Probe::filter(monitor).hasInterruptedEvent();
    });
    Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
    EXPECT_FALSE(wasSentMeanwhile);
    EXPECT_TRUE(Probe::filter(monitor).hasInterruptedEvent());
    journal.clear();
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A));
}

TEST_F(InterruptedEvent, IsSentThoughASlotThrewWhenItHeardThatTheEngineIsNoLongerBusy)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    unwind();
    {
        const boost::signals2::scoped_connection connection =
            monitor.connectEngineIsNoLongerBusy([] { throw std::runtime_error("slot"); });
        EXPECT_THROW(Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor))),
                     std::runtime_error);
    }
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(received(), ElementsAre("widget: KeyRelease " + A));
}
