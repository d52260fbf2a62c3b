#pragma once

#include "interfaces/OnIdleListenerInterface.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTimer>

class QAction;
class QMenu;
class QToolBar;

namespace viewer {

/// Goes back and forward through the views that data were looked at in. A view is remembered when it has come to rest
/// for half a second with no mouse button pressed: so a drag, or some turns of the wheel, are one.
class ViewHistory : public QObject, public velmora::sdk::integration::OnIdleListenerInterface {
    Q_OBJECT

public:
    /// Adds its commands to the menu and the tool bar.
    ViewHistory(QMenu& menu, QToolBar& toolBar, QObject* parent);
    ~ViewHistory() override;

    /// Whether the view that shows now is remembered.
    bool isAtRest() const;

    /// Forgets all views but the one that shows now: there are other data.
    void begin();

    void onIdle(velmora::sdk::integration::OnIdleObservableInterface& source) override;

Q_SIGNALS:
    /// Another view than the one before shows, by one of the commands.
    void viewChanged();

private Q_SLOTS:
    void back();
    void forward();
    void rememberAtRest();

private:
    void remember();
    void go(int steps);
    void showState();

    QAction* m_back;
    QAction* m_forward;
    QTimer m_rest;
    QByteArray m_last;         ///< view that was seen last, at rest or not
    QList<QByteArray> m_views; ///< as the engine tells them
    int m_current = 0;
};

} // namespace viewer
