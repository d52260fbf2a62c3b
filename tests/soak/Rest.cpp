#include "tests/soak/Rest.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "tests/soak/OutermostLoop.h"

#include <QApplication>
#include <QDialog>

namespace velmora::test {

namespace {

constexpr int LookMilliseconds = 20;
constexpr int QuietLooks = 10;

bool isDrawn()
{
    return !VelUtilIsBusy() && VelUtilPageIsComplete();
}

} // namespace

Rest::Rest(const QString& referenceFile, void (*atRest)()) : m_file(referenceFile), m_atRest(atRest)
{
    newWindow();
    startTimer(LookMilliseconds);
}

Rest::~Rest() = default;

void Rest::begin()
{
    m_step = Step::End;
}

void Rest::newWindow()
{
    m_window.reset(); // there is one at a time
    m_window = std::make_unique<viewer::MainWindow>();
    m_window->setGeometry(20, 20, 800, 600);
    m_window->show();
    m_window->activateWindow();
}

/// Whether something was in the way, whose end must be awaited. Dialogs first: work that gave way to
/// one cannot end before it.
bool Rest::endOneThing()
{
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const inTheWay = popup ? popup : QApplication::activeModalWidget();
    if (QDialog* const dialog = qobject_cast<QDialog*>(inTheWay))
        dialog->reject();
    else if (inTheWay)
        inTheWay->close();
    else if (VelUtilIsBusy())
        sdk::integration::Manager::getInstance().getApplicationEventMonitor().interrupt();
    else
        return !isInOutermostLoop();
    return true;
}

void Rest::timerEvent(QTimerEvent*)
{
    const bool closed = !m_window->isVisible() && !m_window->isMinimized();
    if (m_step != Step::None)
        goOn();
    else if (closed && !VelUtilIsBusy() && isInOutermostLoop() && !QApplication::activeModalWidget() &&
             !QApplication::activePopupWidget())
        newWindow();
}

void Rest::goOn()
{
    switch (m_step) {
    case Step::End:
        // Twice in a row nothing, so that what was ended has returned to the application's event loop.
        m_quiet = endOneThing() ? 0 : m_quiet + 1;
        if (m_quiet < 2)
            return;
        m_step = Step::Load;
        newWindow();
        return;
    case Step::Load:
        m_step = Step::Draw;
        m_quiet = 0;
        m_window->openFile(m_file);
        return;
    case Step::Draw:
        m_quiet = isDrawn() ? m_quiet + 1 : 0;
        if (m_quiet < QuietLooks)
            return;
        m_step = Step::None;
        m_quiet = 0;
        m_atRest();
        return;
    case Step::None:
        return;
    }
}

} // namespace velmora::test
