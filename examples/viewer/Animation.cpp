#include "Animation.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/StopButton.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/EventManagerInterface.h"

#include <QAction>
#include <QIcon>
#include <QToolBar>
#include <QToolButton>
#include <boost/make_shared.hpp>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int MillisecondsPerStep = 40;
constexpr double DegreesPerStep = 2.0;

QAction* addButton(QToolBar& toolBar, const char* icon, const QString& text, QObject* receiver, const char* slot)
{
    return toolBar.addAction(QIcon(QString::fromLatin1(":/icons/%1.png").arg(QLatin1String(icon))), text, receiver,
                             slot);
}

} // namespace

Animation::Animation(QToolBar& toolBar, QObject* parent) : QObject(parent)
{
    addButton(toolBar, "vcr-previous", tr("Turn one step back"), this, SLOT(stepBack()));
    m_play = addButton(toolBar, "vcr-play", tr("Turn the surface"), this, SLOT(play()));
    m_pause = addButton(toolBar, "vcr-pause", tr("Stop turning"), this, SLOT(pause()));
    addButton(toolBar, "vcr-next", tr("Turn one step on"), this, SLOT(stepForward()));
    for (QAction* const action : {m_play, m_pause}) // whichever of the two is enabled
        action->setShortcut(QKeySequence(Qt::Key_Space));
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
    m_play->setEnabled(!m_timer.isRunning());
    m_pause->setEnabled(m_timer.isRunning());
}

} // namespace viewer
