// A host whose window is closed by the window manager while the engine works. It goes busy in the
// window's first turn, is interrupted by the closing, unwinds, and must then end by itself with exit
// code 0. A cell of its table is being edited meanwhile: what was typed must be in the table before the window is
// destroyed. Any other end is an error: 1 when the work was never interrupted, 2 when the loop did not
// end in time, 3 when there was no window or no editor, 4 when the typed text was lost or came too late.

#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMainWindow>
#include <QTableWidget>
#include <QTimerEvent>
#include <cstdio>
#include <cstdlib>

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;

namespace {

/// A window in whose first timer event the engine works.
class Window : public QMainWindow {
public:
    explicit Window(intern::ApplicationEventMonitorAbstract& monitor) : m_monitor(monitor)
    {
        m_table->setItem(0, 0, new QTableWidgetItem("before"));
        setCentralWidget(m_table);
    }

    /// Opens an editor of the cell with this text in it; false: none came up.
    bool beginEditing(const QString& text)
    {
        m_table->editItem(m_table->item(0, 0));
        auto* const editor = m_table->findChild<QLineEdit*>();
        if (!editor)
            return false;
        editor->setText(text);
        return true;
    }

    QString cell() const { return m_table->item(0, 0)->text(); }

    /// From the event loop on: a loop that is not yet running cannot be ended.
    void beginSoon() { startTimer(0); }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        killTimer(event->timerId());
        if (m_hasWorked)
            std::exit(2);
        m_hasWorked = true;
        velmora::test::closeByWindowManager(*this);
        work();
        // If nothing ends the application within ten seconds.
        startTimer(10000);
    }

private:
    void work()
    {
        EngineProbe::setBusy(true);
        QElapsedTimer clock;
        clock.start();
        bool stopped = false;
        while (!stopped && clock.elapsed() < 10000)
            stopped = m_monitor.processWhileBusy();
        if (!stopped || !isVisible())
            std::exit(1);
        EngineProbe::setBusy(false);
    }

    intern::ApplicationEventMonitorAbstract& m_monitor;
    QTableWidget* const m_table = new QTableWidget(1, 1); // the window's child
    bool m_hasWorked = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    // Quitting with the last window would end the loop in any case and prove nothing.
    application.setQuitOnLastWindowClosed(false);
    auto& monitor =
        dynamic_cast<intern::ApplicationEventMonitorAbstract&>(Manager::getInstance().getApplicationEventMonitor());
    monitor.start();
    int result = 0;
    {
        Window window(monitor);
        if (!velmora::test::showAndWait(window) || !window.beginEditing("typed"))
            return 3;
        window.beginSoon();
        result = QApplication::exec();
        if (window.cell() != "typed")
            result = 4;
    }
    monitor.stop();
    std::printf("the event loop ended with %d\n", result);
    return result;
}
