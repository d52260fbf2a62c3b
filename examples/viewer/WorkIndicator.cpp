#include "WorkIndicator.h"

#include "IdleTime.h"
#include "ToolTip.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/StopButton.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/EventManagerInterface.h"
#include "interfaces/KeyEventInterface.h"
#include "interfaces/KeyEventObservableInterface.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <boost/make_shared.hpp>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int MillisecondsUntilShown = 250; // shorter work would only flicker
constexpr int BarSteps = 100;

ApplicationEventMonitorInterface& monitor()
{
    return Manager::getInstance().getApplicationEventMonitor();
}

KeyEventObservableInterface& applicationKeys()
{
    return dynamic_cast<KeyEventObservableInterface&>(monitor());
}

QPushButton* makeButton(const QString& text, const QString& toolTip)
{
    QPushButton* const button = new QPushButton(text);
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

WorkIndicator::WorkIndicator(QWidget* parent)
    : QWidget(parent), m_text(new QLabel), m_end(new QStackedWidget), m_idle(new QLabel), m_bar(new QProgressBar),
      m_finishCommand(new QAction(tr("F&inish Drawing"), this))
{
    QHBoxLayout* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    m_text->setTextFormat(Qt::PlainText); // it names files
    row->addWidget(m_text);
    row->addWidget(m_bar);
    m_bar->setRange(0, BarSteps);
    m_bar->setFixedWidth(140);
    m_bar->setAccessibleName(tr("Progress"));
    m_bar->hide();
    m_stop = makeButton(tr("Stop"), withShortcut(tr("Stop what is going on"), QKeySequence(Qt::Key_Escape)));
    m_finishCommand->setToolTip(tr("Draw what is missing"));
    setShortcut(*m_finishCommand, QKeySequence(Qt::SHIFT + Qt::Key_F5));
    m_finish = makeButton(tr("Finish"), m_finishCommand->toolTip());
    row->addWidget(m_finish);
    // Where Stop was nothing can be pressed once it is gone: a person who presses it twice means Stop.
    row->addWidget(m_end);
    m_end->addWidget(m_idle);
    m_end->addWidget(m_stop);
    offerToStop(false);
    offerToFinish(false);
    // As high as ever it gets: a status bar that grows with the button would resize the plot, which
    // would have to be drawn anew.
    setFixedHeight(m_stop->sizeHint().height());
    connect(m_stop, SIGNAL(clicked()), this, SLOT(stop()));
    connect(m_finish, SIGNAL(clicked()), this, SLOT(finish()));
    connect(m_finishCommand, SIGNAL(triggered()), this, SLOT(finish()));

    m_stopButton = boost::make_shared<StopButton>(m_stop);
    Manager::getInstance().getEventManager().registerStopButton(m_stopButton);
    applicationKeys().addKeyboardListener(this);
    idleTime().addOnIdleListener(this);
    m_notBusy = monitor().connectEngineIsNoLongerBusy([this] { workEnded(); });
    VelEngProgressRegisterCallback(&WorkIndicator::progressed, reinterpret_cast<long>(this));
}

WorkIndicator::~WorkIndicator()
{
    VelEngProgressRegisterCallback(nullptr, 0);
    idleTime().removeOnIdleListener(this);
    applicationKeys().removeKeyboardListener(this);
    Manager::getInstance().getEventManager().unRegisterStopButton(m_stopButton);
}

// While the Stop button shows, it is the engine's only way to be interrupted; this viewer wants
// Escape and closing the window, which arrives as Escape too, to work all the same.
void WorkIndicator::keyPressed(KeyEventInterface& event, KeyEventObservableInterface&)
{
    if (event.key() == Qt::Key_Escape)
        stop();
}

void WorkIndicator::keyReleased(KeyEventInterface&, KeyEventObservableInterface&) {}

void WorkIndicator::onIdle(OnIdleObservableInterface&)
{
    m_idle->setText(VelUtilPageIsComplete() ? tr("Idle") : QString());
}

void WorkIndicator::stop()
{
    monitor().interrupt();
}

void WorkIndicator::finish()
{
    offerToFinish(false);
    m_text->clear();
    VelUtilPageFinish();
}

void WorkIndicator::progressed(const char* what, double fraction, long clientData)
{
    reinterpret_cast<WorkIndicator*>(clientData)->showProgress(QString::fromUtf8(what), fraction);
}

void WorkIndicator::showProgress(const QString& what, double fraction)
{
    if (!m_working.isValid())
        m_working.start();
    if (m_working.elapsed() < MillisecondsUntilShown)
        return;
    m_idle->clear();
    m_text->setText(what);
    m_bar->setValue(static_cast<int>(fraction * BarSteps));
    m_bar->show();
    offerToStop(true);
    offerToFinish(false);
}

void WorkIndicator::offerToStop(bool offered)
{
    QWidget* const shown = offered ? static_cast<QWidget*>(m_stop) : m_idle;
    m_end->setCurrentWidget(shown);
}

void WorkIndicator::offerToFinish(bool offered)
{
    m_finish->setVisible(offered);
    m_finishCommand->setEnabled(offered);
}

void WorkIndicator::workEnded()
{
    m_working.invalidate();
    m_bar->hide();
    offerToStop(false);
    const bool incomplete = VelUtilPageIsInterrupted() != 0;
    m_text->setText(incomplete ? tr("The plot is incomplete.") : QString());
    offerToFinish(incomplete);
    // Idle time is announced after an event, and the end of work is none.
    QTimer::singleShot(0, this, SLOT(update()));
}

} // namespace viewer
