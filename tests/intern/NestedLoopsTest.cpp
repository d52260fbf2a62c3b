// Event loops that handlers of the host open in the busy engine's turn: while one runs nothing is held back
// from it, discarded or taken for a stop, and a request to stop waits for its end.
#include "integration/intern/NestedLoops.h"
#include "interfaces/KeyEventInterface.h"
#include "tests/intern/RealInputFixture.h"
#include "tests/support/ToolkitFacts.h"

#include <QAbstractEventDispatcher>
#include <QDialog>
#include <QEventLoop>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>

using namespace velmora::test;
using ::testing::Contains;
using ::testing::Not;

namespace {

const char* const EndIsNotTold = "Qt 4 does not tell that a loop has ended: it counts until the turn ends";
const std::string Escape = std::to_string(Qt::Key_Escape);

/// Runs a function once, in the application's next turn.
class InNextTurn : public QObject {
public:
    explicit InNextTurn(std::function<void()> function) : m_function(std::move(function))
    {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // the queue owns it
    }

protected:
    void customEvent(QEvent*) override { m_function(); }

private:
    const std::function<void()> m_function;
};

/// Acts as soon as the condition holds, from within whatever loop runs then.
class AsSoonAs : public QObject {
public:
    AsSoonAs(std::function<bool()> condition, std::function<void()> act)
        : m_condition(std::move(condition)), m_act(std::move(act))
    {
        startTimer(1);
    }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        if (!m_condition())
            return;
        killTimer(event->timerId());
        m_act();
    }

private:
    const std::function<bool()> m_condition;
    const std::function<void()> m_act;
};

class NestedLoops : public RealInput {
protected:
    /// A request made by the host itself, in its own code.
    void request() { monitor.interrupt(); }

    bool isHeldBack() { return monitor.shouldInterrupt(); }
};

} // namespace

TEST_F(NestedLoops, EscapeClosesAMenuAndDoesNotStopTheWork)
{
    QMenu menu;
    menu.addAction(QLatin1String("Action"));
    bool closed = false;
    InNextTurn opening([&] {
        menu.exec(window.mapToGlobal(QPoint(20, 20)));
        closed = true;
    });
    AsSoonAs typing([&] { return menu.isVisible() && menu.isActiveWindow(); }, [] { typeKey(XK_Escape); });
    EXPECT_FALSE(work([&] { return closed; }));
    EXPECT_TRUE(closed);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(NestedLoops, AnEntryOfAContextMenuIsChosenWithTheMouseWhileTheEngineWorks)
{
    QMenu menu;
    QAction* const entry = menu.addAction(QLatin1String("Action"));
    QAction* chosen = nullptr;
    InNextTurn opening([&] { chosen = menu.exec(window.mapToGlobal(QPoint(20, 20))); });
    AsSoonAs clicking([&] { return menu.isVisible(); }, [&] { click(menu, menu.actionGeometry(entry).center()); });
    EXPECT_FALSE(work([&] { return chosen != nullptr; }));
    EXPECT_EQ(chosen, entry);
}

TEST_F(NestedLoops, AMessageBoxIsAnsweredByAClickAndTheWorkGoesOn)
{
    int answer = -1;
    QMessageBox box(QMessageBox::Question, QString(), QLatin1String("?"), QMessageBox::Ok | QMessageBox::Cancel);
    InNextTurn asking([&] { answer = box.exec(); });
    AsSoonAs clicking([&] { return box.isVisible(); },
                      [&] {
                          QWidget* const ok = box.button(QMessageBox::Ok);
                          click(*ok, ok->rect().center());
                      });
    EXPECT_FALSE(work([&] { return answer >= 0; }));
    EXPECT_EQ(answer, QMessageBox::Ok);
}

TEST_F(NestedLoops, EscapeInAMessageBoxAnswersItAndDoesNotStopTheWork)
{
    int answer = -1;
    QMessageBox box(QMessageBox::Question, QString(), QLatin1String("?"), QMessageBox::Ok | QMessageBox::Cancel);
    InNextTurn asking([&] { answer = box.exec(); });
    AsSoonAs typing([&] { return box.isVisible(); },
                    [&] {
                        focusWindow(box);
                        typeKey(XK_Escape);
                    });
    EXPECT_FALSE(work([&] { return answer >= 0; }));
    EXPECT_EQ(answer, QMessageBox::Cancel);
}

TEST_F(NestedLoops, ARequestMadeInALoopWaitsForItsEnd)
{
    if (!countsEventLoops())
        GTEST_SKIP() << EndIsNotTold;
    QEventLoop loop;
    bool waited = false;
    int passed = 0;
    InNextTurn opening([&] {
        AsSoonAs requesting([] { return true; }, [&] { request(); });
        // Three events later it still waits, and they have come through.
        AsSoonAs counting([&] { return monitor.isBusy() && ++passed > 3; },
                          [&] {
                              waited = !isHeldBack();
                              loop.quit();
                          });
        loop.exec();
        EXPECT_TRUE(isHeldBack());
    });
    EXPECT_TRUE(work());
    EXPECT_TRUE(waited);
}

TEST_F(NestedLoops, ALoopOpenedAfterTheRequestEndsByWhatItWaitsFor)
{
    if (!countsEventLoops())
        GTEST_SKIP() << EndIsNotTold;
    bool ended = false;
    InNextTurn stopping([&] {
        request();
        EXPECT_TRUE(isHeldBack());
        QEventLoop loop;
        QTimer::singleShot(1, &loop, SLOT(quit()));
        loop.exec();
        ended = true;
        EXPECT_TRUE(isHeldBack());
    });
    EXPECT_TRUE(work());
    EXPECT_TRUE(ended);
}

TEST_F(NestedLoops, ALoopInALoopEndsByWhatItWaitsFor)
{
    int ended = 0;
    InNextTurn stopping([&] {
        QEventLoop outer;
        AsSoonAs inside([] { return true; },
                        [&] {
                            request();
                            QEventLoop inner;
                            QTimer::singleShot(1, &inner, SLOT(quit()));
                            inner.exec();
                            ++ended;
                            EXPECT_FALSE(isHeldBack());
                            QTimer::singleShot(1, &outer, SLOT(quit()));
                        });
        outer.exec();
        ++ended;
    });
    EXPECT_TRUE(work());
    EXPECT_EQ(ended, 2);
}

TEST_F(NestedLoops, AHandlerThatProcessesEventsUntilSomethingHasHappenedEnds)
{
    for (const QEventLoop::ProcessEventsFlags flags : {QEventLoop::AllEvents, QEventLoop::WaitForMoreEvents}) {
        bool happened = false;
        InNextTurn stopping([&] {
            request();
            AsSoonAs happening([] { return true; }, [&] { happened = true; });
            QElapsedTimer clock;
            clock.start();
            while (!happened && clock.elapsed() < 10000)
                QCoreApplication::processEvents(flags);
        });
        EXPECT_TRUE(work());
        EXPECT_TRUE(happened);
    }
}

TEST_F(NestedLoops, EventsProcessedOnceByAHandlerAreStillThoseOfTheTurn)
{
    InNextTurn processing([] {
        typeKey(XK_Escape);
        QElapsedTimer clock;
        clock.start();
        QAbstractEventDispatcher& dispatcher = *QAbstractEventDispatcher::instance();
        while (clock.elapsed() < 10000 && !dispatcher.processEvents(QEventLoop::AllEvents)) {
        }
    });
    EXPECT_TRUE(work());
}

TEST_F(NestedLoops, ALoopInACallbackOfTheEngineIsOneToo)
{
    if (!countsEventLoops())
        GTEST_SKIP() << EndIsNotTold;
    velmora::testing::EngineProbe::setBusy(true);
    monitor.processWhileBusy();
    request();
    EXPECT_TRUE(isHeldBack());
    QEventLoop loop;
    QTimer::singleShot(1, &loop, SLOT(quit()));
    loop.exec();
    EXPECT_TRUE(isHeldBack());
    velmora::testing::EngineProbe::setBusy(false);
}

TEST_F(NestedLoops, ALoopBeforeTheFirstTurnIsOneToo)
{
    if (!countsEventLoops())
        GTEST_SKIP() << EndIsNotTold;
    velmora::testing::EngineProbe::setBusy(true);
    QEventLoop loop;
    bool interruptible = true;
    AsSoonAs asking([] { return true; },
                    [&] {
                        interruptible = monitor.isEngineInterruptible();
                        loop.quit();
                    });
    loop.exec();
    EXPECT_FALSE(interruptible);
    EXPECT_TRUE(monitor.isEngineInterruptible());
    velmora::testing::EngineProbe::setBusy(false);
}

TEST_F(NestedLoops, WorkBegunInALoopIsInterrupted)
{
    bool inner = false;
    QEventLoop loop;
    AsSoonAs working([] { return true; },
                     [&] {
                         typeKey(XK_Escape);
                         inner = work();
                         loop.quit();
                     });
    loop.exec();
    EXPECT_TRUE(inner);
}

namespace {

/// A host's listener that acts on Escape, although a stop button is in force.
class ActsOnEscape : public velmora::sdk::integration::KeyEventListenerInterface {
public:
    ActsOnEscape(Monitor& monitor, std::function<void()> act) : m_monitor(monitor), m_act(std::move(act))
    {
        m_monitor.addKeyboardListener(this);
    }
    ~ActsOnEscape() override { m_monitor.removeKeyboardListener(this); }

    void keyPressed(velmora::sdk::integration::KeyEventInterface& event,
                    velmora::sdk::integration::KeyEventObservableInterface&) override
    {
        if (event.key() == Qt::Key_Escape)
            m_act();
    }
    void keyReleased(velmora::sdk::integration::KeyEventInterface&,
                     velmora::sdk::integration::KeyEventObservableInterface&) override
    {}

private:
    Monitor& m_monitor;
    const std::function<void()> m_act;
};

} // namespace

TEST_F(NestedLoops, AListenerThatStopsOnEscapeIsNotMetByTheEscapeOfAMenu)
{
    const ActsOnEscape listener(monitor, [&] { request(); });
    QMenu menu;
    menu.addAction(QLatin1String("Action"));
    bool closed = false;
    InNextTurn opening([&] {
        menu.exec(window.mapToGlobal(QPoint(20, 20)));
        closed = true;
    });
    AsSoonAs typing([&] { return menu.isVisible() && menu.isActiveWindow(); }, [] { typeKey(XK_Escape); });
    int turns = 0;
    EXPECT_FALSE(work([&] { return closed && ++turns > 3; }));
    typeKey(XK_Escape);
    EXPECT_TRUE(work());
}

TEST_F(NestedLoops, ARequestMadeInALoopOfAListenerCountsWhateverTheListenerWasToldOf)
{
    if (!countsEventLoops())
        GTEST_SKIP() << EndIsNotTold;
    const ActsOnEscape listener(monitor, [&] {
        QEventLoop question;
        AsSoonAs answering([] { return true; },
                           [&] {
                               request();
                               question.quit();
                           });
        question.exec();
    });
    QMenu menu;
    menu.addAction(QLatin1String("Action"));
    InNextTurn opening([&] { menu.exec(window.mapToGlobal(QPoint(20, 20))); });
    AsSoonAs typing([&] { return menu.isVisible() && menu.isActiveWindow(); }, [] { typeKey(XK_Escape); });
    EXPECT_TRUE(work());
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(NestedLoops, WhatWasSwallowedBeforeALoopIsToldInIt)
{
    class Painted : public QWidget {
    public:
        int paints = 0;
        void paintEvent(QPaintEvent*) override { ++paints; }
    } other;
    other.setGeometry(500, 100, 100, 100);
    EXPECT_TRUE(showAndWait(other));
    const int before = other.paints;
    bool repainted = false;
    InNextTurn stopping([&] {
        request();
        other.repaint(); // swallowed
        EXPECT_EQ(other.paints, before);
        QEventLoop loop;
        AsSoonAs ending([&] { return other.paints > before; },
                        [&] {
                            repainted = true;
                            loop.quit();
                        });
        QTimer::singleShot(5000, &loop, SLOT(quit()));
        loop.exec();
    });
    EXPECT_TRUE(work());
    EXPECT_TRUE(repainted);
}

namespace {

bool sendTo(QObject& receiver, QEvent::Type type)
{
    QEvent event(type); // its type is all that the monitor looks at
    return QCoreApplication::sendEvent(&receiver, &event);
}

class Taker : public QObject {
public:
    int taken = 0;
    bool event(QEvent* event) override
    {
        taken += event->type() == QEvent::TouchBegin || event->type() == QEvent::TabletPress;
        return QObject::event(event);
    }
};

} // namespace

TEST_F(NestedLoops, PressesOfFingerAndPenAreDiscardedWhileBusyButNotInALoop)
{
    for (const QEvent::Type type : {QEvent::TouchBegin, QEvent::TabletPress}) {
        Taker taker;
        sendTo(taker, type);
        EXPECT_EQ(taker.taken, 1) << "not busy";
        QEventLoop loop;
        bool done = false;
        InNextTurn pressing([&] {
            sendTo(taker, type);
            EXPECT_EQ(taker.taken, 1) << "busy";
            AsSoonAs inside([] { return true; },
                            [&] {
                                sendTo(taker, type);
                                loop.quit();
                            });
            loop.exec();
            EXPECT_EQ(taker.taken, 2) << "in a loop";
            done = true;
        });
        EXPECT_FALSE(work([&] { return done; }));
    }
}

TEST_F(NestedLoops, ADiscardedPressOfAPenIsLeftToTheToolkitWhichMakesAMousePressOfIt)
{
    Taker taker;
    velmora::testing::EngineProbe::setBusy(true);
    QEvent press(QEvent::TabletPress);
    press.accept();
    QCoreApplication::sendEvent(&taker, &press);
    EXPECT_FALSE(press.isAccepted());
    velmora::testing::EngineProbe::setBusy(false);
}

TEST_F(NestedLoops, AnEntryChosenInAnOpenMenuWithTheKeyboardDoesItsWorkAndDoesNotStopTheEngine)
{
    // Opened before the work, without a loop of its own, as the menus of a menu bar are.
    QMenu menu;
    QAction* const entry = menu.addAction(QLatin1String("Action"));
    entry->setCheckable(true);
    menu.popup(window.mapToGlobal(QPoint(20, 20)));
    EXPECT_TRUE(waitUntil([&] { return menu.isVisible(); }));
    menu.setActiveAction(entry);
    typeKey(XK_Return);
    EXPECT_FALSE(work([&] { return entry->isChecked(); }));
    EXPECT_TRUE(entry->isChecked());
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(NestedLoops, ClosingAPopupInterruptsNeitherByItselfNorByAListener)
{
    const ActsOnEscape listener(monitor, [&] { request(); });
    QWidget popup(nullptr, Qt::Popup);
    popup.setGeometry(150, 150, 50, 50);
    popup.show();
    bool closed = false;
    InNextTurn closing([&] { closed = popup.close(); });
    int turns = 0;
    EXPECT_FALSE(work([&] { return ++turns > 3; }));
    EXPECT_TRUE(closed);
    EXPECT_THAT(journal, Contains("key down " + Escape + " modifiers 0")) << "the engine hears of it all the same";
}

TEST_F(NestedLoops, ADialogThatAHandlerEndsIsNotClosedByEscape)
{
    int escapes = 0;
    const ActsOnEscape listener(monitor, [&] {
        ++escapes;
        request();
    });
    QDialog dialog;
    ASSERT_TRUE(showAndWait(dialog));
    InNextTurn ending([&] { dialog.accept(); });
    int turns = 0;
    EXPECT_FALSE(work([&] { return !dialog.isVisible() && ++turns > 3; }));
    EXPECT_EQ(escapes, 0);
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
}

TEST_F(NestedLoops, ADialogThatAHandlerEndsWhileEventsAreHeldBackIsClosed)
{
    QDialog dialog;
    ASSERT_TRUE(showAndWait(dialog));
    bool ended = false;
    workWithEverythingHeldBack([&] {
        if (!ended)
            dialog.accept();
        ended = true;
        return ended;
    });
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
}

TEST_F(NestedLoops, ADialogThatAPersonClosesStopsTheWorkAndIsClosedOnceItIsOver)
{
    QDialog dialog;
    ASSERT_TRUE(showAndWait(dialog));
    closeByWindowManager(dialog);
    EXPECT_TRUE(work());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(waitUntil([&] { return !dialog.isVisible(); }));
    EXPECT_EQ(dialog.result(), int(QDialog::Rejected));
}

TEST_F(NestedLoops, AWidgetOfALayoutMayBeDeletedInTheSlotThatAsksForTheStop)
{
    QWidget host;
    QVBoxLayout* const layout = new QVBoxLayout(&host); // the host's
    QPointer<QWidget> child = new QWidget;              // the host's from now on
    layout->addWidget(child);
    host.setGeometry(500, 300, 100, 100);
    EXPECT_TRUE(showAndWait(host));
    InNextTurn stopping([&] {
        request();
        delete child;
    });
    EXPECT_TRUE(work());
    EXPECT_EQ(layout->count(), 0);
    host.resize(200, 200);
    processPending();
}
