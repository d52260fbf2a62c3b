#pragma once

#include "integration/toolkit/EventTransport.h"
#include "testing/EngineProbe.h"
#include "tests/intern/MonitorFixture.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPushButton>
#include <algorithm>

namespace velmora::test {

/// Asked before the monitor, lets nothing but input through: a late repaint or a hover effect of the
/// toolkit would otherwise be the first event of an interruption now and then.
class InputOnly : public QObject {
public:
    InputOnly() { qApp->installEventFilter(this); }
    ~InputOnly() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        using sdk::integration::toolkit::isOnlyTransport;
        if (event->type() == QEvent::Timer) // the monitor's own included
            return true;
        return receiver->isWidgetType() && !isOnlyTransport(receiver) &&
               (describe(*event).empty() || event->type() == QEvent::MouseMove);
    }
};

/// A main window with an area that takes input and a button beside it.
class Window : public Receiver<QMainWindow> {
public:
    explicit Window(Journal& journal)
        : Receiver<QMainWindow>("window", journal), area(new Receiver<QWidget>("area", journal, this)),
          button(new QPushButton(this)) // both belong to the window
    {
        setGeometry(100, 100, 300, 200);
        area->setGeometry(0, 0, 300, 120);
        area->setFocusPolicy(Qt::StrongFocus);
        button->setGeometry(0, 140, 100, 40);
        button->setFocusPolicy(Qt::NoFocus);
        // Only the input of the area is looked at; the window does with its own what windows do.
        onEvent = [this](QEvent& event) { QMainWindow::event(&event); };
    }

    QPoint overArea() const { return QPoint(50, 50); }
    QPoint overButton() const { return QPoint(50, 160); }

    Receiver<QWidget>* const area;
    QPushButton* const button;
};

/// The window in front with the pointer over its area, and a monitor that has started.
class RealInput : public ::testing::Test {
protected:
    RealInput()
    {
        testing::EngineProbe::reset();
        // A press right after that of the test before is not meant as a double click.
        QApplication::setDoubleClickInterval(0);
        monitor.start();
        EXPECT_TRUE(showAndWait(window));
        focusWindow(window);
        EXPECT_TRUE(waitUntil([&] { return QApplication::activeWindow() == &window; }));
        window.area->setFocus();
        movePointer(window, window.overArea());
        EXPECT_TRUE(waitUntil([&] { return window.area->underMouse(); }));
        processPending();
        journal.clear();
    }
    ~RealInput() override { testing::EngineProbe::reset(); }

    /// Engine work in slices, until it is asked to stop or the condition holds; whether it was asked.
    bool work(const std::function<bool()>& done = [] { return false; })
    {
        testing::EngineProbe::setBusy(true);
        QElapsedTimer clock;
        clock.start();
        bool stopped = false;
        while (!stopped && !done() && clock.elapsed() < 10000)
            stopped = monitor.processWhileBusy();
        journal.push_back("unwound");
        testing::EngineProbe::setBusy(false);
        return stopped;
    }
    /// The same with all input held back from the start.
    void workHeldBack(const std::function<bool()>& done)
    {
        const InputOnly inputOnly;
        workWithEverythingHeldBack(done);
    }
    void workWithEverythingHeldBack(const std::function<bool()>& done)
    {
        testing::EngineProbe::askToStop(true);
        testing::EngineProbe::setBusy(true);
        QElapsedTimer clock;
        clock.start();
        while (!done() && clock.elapsed() < 10000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        testing::EngineProbe::askToStop(false);
        journal.push_back("unwound");
        testing::EngineProbe::setBusy(false);
    }
    bool hasHappened(const std::string& entry) const
    {
        return std::find(journal.begin(), journal.end(), entry) != journal.end();
    }
    std::size_t placeOf(const std::string& entry) const
    {
        return static_cast<std::size_t>(std::find(journal.begin(), journal.end(), entry) - journal.begin());
    }
    bool isKept() { return Probe::filter(monitor).hasInterruptedEvent(); }

    Journal journal;
    PlainMonitor monitor;
    Listening listening{monitor, journal};
    Window window{journal};
};

} // namespace velmora::test
