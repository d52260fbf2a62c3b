#pragma once

#include <QDialog>

namespace viewer {

/// The help, beside the window that it is about: that one can be used meanwhile.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);

public Q_SLOTS:
    /// Shows the help, and brings it to the front if it is behind other windows.
    void present();
};

} // namespace viewer
