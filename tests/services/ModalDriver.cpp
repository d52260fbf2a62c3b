#include "tests/services/ModalDriver.h"

#include "tests/support/WindowManager.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QDialog>

namespace velmora::test {

namespace {

const int PollMilliseconds = 2;
const int PatienceMilliseconds = 30000;

} // namespace

ModalDriver::ModalDriver(std::function<void(QWidget&)> act) : m_act(std::move(act)), m_managed(hasWindowManager())
{
    m_clock.start();
    startTimer(PollMilliseconds);
}

void ModalDriver::timerEvent(QTimerEvent*)
{
    QWidget* const window = QApplication::activeModalWidget();
    if (m_clock.elapsed() > PatienceMilliseconds)
        giveUp();
    else if (window && window->isVisible() && !m_acted)
        actOn(*window);
}

void ModalDriver::actOn(QWidget& window)
{
    if (!window.isActiveWindow()) {
        // A window manager gives a new window the focus itself.
        if (!m_managed)
            window.activateWindow();
        return;
    }
    // It may have more to do with the new window, and would take the focus for a moment.
    if (m_managed && !waitForWindowManager())
        return;
    m_acted = true;
    m_act(window);
}

void ModalDriver::giveUp()
{
    m_hadToClose = true;
    m_clock.restart();
    if (QDialog* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

} // namespace velmora::test
