#include "Animation.h"

#include "engine/VelUtil.h"

#include <QAction>
#include <QIcon>
#include <QToolBar>

namespace viewer {

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
    m_timer.addListener(this);
    showState();
}

Animation::~Animation()
{
    m_timer.stop();
    m_timer.removeListener(this);
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
    showState();
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
