#include "Animation.h"

#include "Icon.h"
#include "ToolTip.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/StopButton.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/EventManagerInterface.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <boost/make_shared.hpp>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int MillisecondsPerStep = 40;
constexpr double DegreesPerStep = 2.0;

} // namespace

Animation::Animation(QMenu& menu, QToolBar& toolBar, QObject* parent)
    : QObject(parent),
      m_stepBack(menu.addAction(icon("icons/vcr-previous.png"), tr("Turn One Step &Back"), this, SLOT(stepBack()))),
      m_play(menu.addAction(icon("icons/vcr-play.png"), tr("&Turn the Surface"), this, SLOT(play()))),
      m_pause(menu.addAction(icon("icons/vcr-pause.png"), tr("Stop Turnin&g"), this, SLOT(pause()))),
      m_stepForward(menu.addAction(icon("icons/vcr-next.png"), tr("Turn One St&ep On"), this, SLOT(stepForward())))
{
    setShortcut(*m_stepBack, QKeySequence(Qt::CTRL + Qt::Key_Left));
    for (QAction* const action : {m_play, m_pause}) // whichever of the two is enabled
        setShortcut(*action, QKeySequence(Qt::Key_Space));
    setShortcut(*m_stepForward, QKeySequence(Qt::CTRL + Qt::Key_Right));
    for (QAction* const action : {m_stepBack, m_play, m_pause, m_stepForward})
        toolBar.addAction(action);
    // While the surface turns the engine is nearly always busy, and a press that comes then counts
    // only on a stop button.
    QToolButton* const pauseButton = qobject_cast<QToolButton*>(toolBar.widgetForAction(m_pause));
    m_stopButton = boost::make_shared<StopButton>(pauseButton);
    Manager::getInstance().getEventManager().registerStopButton(m_stopButton);
    connect(pauseButton, SIGNAL(pressed()), this, SLOT(pause()));
    m_notBusy =
        Manager::getInstance().getApplicationEventMonitor().connectEngineIsNoLongerBusy([this] { workEnded(); });
    m_timer.addListener(this);
    showState();
}

Animation::~Animation()
{
    m_timer.stop();
    m_timer.removeListener(this);
    Manager::getInstance().getEventManager().unRegisterStopButton(m_stopButton);
}

void Animation::setEnabled(bool enabled)
{
    m_enabled = enabled;
    if (!enabled)
        m_timer.stop();
    showState();
}

// A picture that is still being drawn is not disturbed: turning it now would begin it anew.
void Animation::timeout(velmora::sdk::util::TimerInterface&)
{
    if (!VelUtilIsBusy() && VelUtilPageIsComplete())
        VelUtilViewRotate(DegreesPerStep, 0.0);
}

void Animation::play()
{
    m_timer.start(MillisecondsPerStep);
    showState();
}

void Animation::pause()
{
    m_timer.stop();
    m_interrupts = VelUtilIsBusy() != 0;
    showState();
}

// The pause interrupts the drawing that it comes in, and the picture it stops at is to be whole.
void Animation::workEnded()
{
    if (m_interrupts && VelUtilPageIsInterrupted())
        VelUtilPageFinish();
    m_interrupts = false;
}

void Animation::stepForward()
{
    pause();
    VelUtilViewRotate(DegreesPerStep, 0.0);
}

void Animation::stepBack()
{
    pause();
    VelUtilViewRotate(-DegreesPerStep, 0.0);
}

void Animation::showState()
{
    for (QAction* const step : {m_stepBack, m_stepForward})
        step->setEnabled(m_enabled);
    m_play->setEnabled(m_enabled && !m_timer.isRunning());
    m_pause->setEnabled(m_timer.isRunning());
}

} // namespace viewer
