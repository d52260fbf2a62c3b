#pragma once

#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "interfaces/Signal.h"

#include <QElapsedTimer>
#include <QWidget>
#include <boost/shared_ptr.hpp>

class QAction;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace velmora {
namespace sdk {
namespace integration {
class StopButtonInterface;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

/// Tells in the status bar how far the engine's work is and lets a person stop it, with the button
/// or with Escape; tells of a picture that was left incomplete and offers to finish it; tells when
/// there is nothing left to do.
class WorkIndicator : public QWidget,
                      public velmora::sdk::integration::KeyEventListenerInterface,
                      public velmora::sdk::integration::OnIdleListenerInterface {
    Q_OBJECT

public:
    explicit WorkIndicator(QWidget* parent);
    ~WorkIndicator() override;

    /// The command that does what the button to finish does, for a menu; enabled while that shows.
    QAction& finishCommand() const { return *m_finishCommand; }

    void keyPressed(velmora::sdk::integration::KeyEventInterface& event,
                    velmora::sdk::integration::KeyEventObservableInterface& source) override;
    void keyReleased(velmora::sdk::integration::KeyEventInterface& event,
                     velmora::sdk::integration::KeyEventObservableInterface& source) override;
    void onIdle(velmora::sdk::integration::OnIdleObservableInterface& source) override;

private Q_SLOTS:
    void stop();
    void finish();

private:
    static void progressed(const char* what, double fraction, long clientData);
    void showProgress(const QString& what, double fraction);
    void workEnded();
    void offerToStop(bool offered);
    void offerToFinish(bool offered);

    QLabel* m_text;
    QStackedWidget* m_end; ///< at the end of the row
    QLabel* m_idle;
    QProgressBar* m_bar;
    QPushButton* m_stop;
    QPushButton* m_finish;
    QAction* m_finishCommand;
    QElapsedTimer m_working;
    boost::shared_ptr<const velmora::sdk::integration::StopButtonInterface> m_stopButton;
    boost::signals2::scoped_connection m_notBusy;
};

} // namespace viewer
