#pragma once

#include <QObject>

class QMainWindow;

namespace viewer {

/// Gives a window the size, the place and the tool bars and panels that it had when it was last closed, and keeps them
/// when it is closed. What stood on a screen that is gone comes back on one that is there.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// Before the window is shown. The object is the window's.
    explicit WindowPlace(QMainWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMainWindow& m_window;
};

} // namespace viewer
