#pragma once

#include "interfaces/Signal.h"
#include "interfaces/TimerListenerInterface.h"
#include "util/Timer.h"

#include <QObject>
#include <boost/shared_ptr.hpp>

class QAction;
class QMenu;
class QToolBar;

namespace velmora {
namespace sdk {
namespace integration {
class StopButtonInterface;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

/// Turns the surface, by itself or step by step.
class Animation : public QObject, public velmora::sdk::util::TimerListenerInterface {
    Q_OBJECT

public:
    /// Adds its commands to the menu and the tool bar. Make it before other stop buttons, which then
    /// come first.
    Animation(QMenu& menu, QToolBar& toolBar, QObject* parent);
    ~Animation() override;

    /// Whether there is a surface to turn. Without one it stands still, and none can make it go.
    void setEnabled(bool enabled);

    void timeout(velmora::sdk::util::TimerInterface& timer) override;

public Q_SLOTS:
    void play();
    void pause();
    void stepForward();
    void stepBack();

private:
    void workEnded();
    void showState();

    velmora::sdk::util::Timer m_timer;
    QAction* m_stepBack;
    QAction* m_play;
    QAction* m_pause;
    QAction* m_stepForward;
    boost::shared_ptr<const velmora::sdk::integration::StopButtonInterface> m_stopButton;
    boost::signals2::scoped_connection m_notBusy;
    bool m_enabled = false;
    bool m_interrupts = false; ///< the pause came in the middle of a drawing
};

} // namespace viewer
