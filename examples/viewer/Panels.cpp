#include "Panels.h"

#include "AboutFilePanel.h"
#include "ColumnsPanel.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

namespace viewer {

Panels::Panels(QMenu& menu, QMainWindow& window)
    : QObject(&window), m_menu(menu), m_window(window), m_columns(new ColumnsPanel(&window)),
      m_aboutFile(new AboutFilePanel(&window))
{
    add(*m_columns, Qt::RightDockWidgetArea);
    add(*m_aboutFile, Qt::BottomDockWidgetArea);
    connect(m_columns, SIGNAL(chosen()), this, SIGNAL(chosen()));
}

void Panels::add(QDockWidget& panel, Qt::DockWidgetArea area)
{
    m_window.addDockWidget(area, &panel);
    panel.hide();
    m_menu.addAction(panel.toggleViewAction());
}

void Panels::refresh()
{
    m_columns->refresh();
    m_aboutFile->refresh();
}

} // namespace viewer
