#pragma once

#include "interfaces/TimerListenerInterface.h"
#include "util/Timer.h"

#include <QObject>

class QAction;
class QToolBar;

namespace viewer {

/// Turns the surface, by itself or step by step.
class Animation : public QObject, public velmora::sdk::util::TimerListenerInterface {
    Q_OBJECT

public:
    /// Adds its buttons to the tool bar.
    Animation(QToolBar& toolBar, QObject* parent);
    ~Animation() override;

    void timeout(velmora::sdk::util::TimerInterface& timer) override;

public Q_SLOTS:
    void play();
    void pause();
    void stepForward();
    void stepBack();

private:
    void showState();

    velmora::sdk::util::Timer m_timer;
    QAction* m_play;
    QAction* m_pause;
};

} // namespace viewer
