#include "ObjectMenu.h"

#include "RegionSelector.h"
#include "ScreenPixels.h"
#include "engine/VelUtil.h"

#include <QAction>
#include <QMenu>

namespace viewer {

using velmora::sdk::integration::GLDrawArea;

ObjectMenu::ObjectMenu(QMenu& parentMenu, GLDrawArea& area, QObject* parent)
    : QObject(parent), m_area(area), m_menu(parentMenu.addMenu(tr("Ob&jects")))
{
    m_menu->addAction(tr("Select &Next"), this, SLOT(selectNext()), QKeySequence(tr("N")));
    m_menu->addAction(tr("Select &Previous"), this, SLOT(selectPrevious()), QKeySequence(tr("Shift+N")));
    QAction* const all = m_menu->addAction(tr("Select &All"), this, SLOT(selectAll()), QKeySequence::SelectAll);
    all->setShortcutContext(Qt::WidgetShortcut); // the panels' lists have one of their own
    m_area.addAction(all);
}

void ObjectMenu::setEnabled(bool enabled)
{
    const QList<QAction*> actions = m_menu->actions();
    for (QAction* const action : actions)
        action->setEnabled(enabled);
}

void ObjectMenu::selectNext()
{
    VelUtilPickNext();
    Q_EMIT selectionChanged();
}

void ObjectMenu::selectPrevious()
{
    VelUtilPickPrevious();
    Q_EMIT selectionChanged();
}

void ObjectMenu::selectAll()
{
    selectIn(QRect(QPoint(), screenSize(m_area)), false);
    Q_EMIT selectionChanged();
}

} // namespace viewer
