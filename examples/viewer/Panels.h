#pragma once

#include <QObject>

class QDockWidget;
class QMainWindow;
class QMenu;

namespace viewer {

class AboutFilePanel;
class ColumnsPanel;

/// The panels beside the picture, and their commands. They are closed at first.
class Panels : public QObject {
    Q_OBJECT

public:
    /// Adds the commands to the menu; `window` owns the object and the panels.
    Panels(QMenu& menu, QMainWindow& window);

Q_SIGNALS:
    /// A person has chosen what is drawn.
    void chosen();

public Q_SLOTS:
    /// Shows what there is now: other data, or other lines of them.
    void refresh();

private:
    void add(QDockWidget& panel, Qt::DockWidgetArea area);

    QMenu& m_menu;
    QMainWindow& m_window;
    ColumnsPanel* m_columns;
    AboutFilePanel* m_aboutFile;
};

} // namespace viewer
