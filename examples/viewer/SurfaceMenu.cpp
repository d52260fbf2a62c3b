#include "SurfaceMenu.h"

#include "Icon.h"
#include "engine/VelUtil.h"

#include <QActionGroup>
#include <QMenu>

namespace viewer {

SurfaceMenu::SurfaceMenu(QMenu& parentMenu, QObject* parent)
    : QObject(parent), m_sides(new QActionGroup(this)), m_exaggerations(new QActionGroup(this))
{
    QMenu& menu = *parentMenu.addMenu(tr("S&urface"));
    // The numbers are the engine's.
    addSide(menu, "icons/orientation-xy.png", tr("&Map View"), Qt::Key_1, 0);
    addSide(menu, "icons/orientation-xz.png", tr("&Front View"), Qt::Key_2, 1);
    addSide(menu, "icons/orientation-yz.png", tr("&Side View"), Qt::Key_3, 2);
    menu.addSeparator();
    QMenu* const exaggerations = menu.addMenu(tr("&Vertical Exaggeration"));
    addExaggeration(*exaggerations, tr("&Half"), 0.5);
    addExaggeration(*exaggerations, tr("&1 (as by Itself)"), 1.0);
    addExaggeration(*exaggerations, tr("&2 Times"), 2.0);
    addExaggeration(*exaggerations, tr("&5 Times"), 5.0);
    addExaggeration(*exaggerations, tr("10 &Times"), 10.0);
    m_clipColors = menu.addAction(tr("&Colours from 2 to 98 %"));
    m_clipColors->setCheckable(true);
    m_clipColors->setShortcut(QKeySequence(tr("C")));
    connect(m_sides, SIGNAL(triggered(QAction*)), this, SLOT(lookFrom(QAction*)));
    connect(m_exaggerations, SIGNAL(triggered(QAction*)), this, SLOT(setExaggeration(QAction*)));
    connect(m_clipColors, SIGNAL(triggered(bool)), this, SLOT(clipColors(bool)));
    showState();
}

void SurfaceMenu::addSide(QMenu& menu, const char* iconName, const QString& text, int key, int side)
{
    QAction* const action = menu.addAction(icon(iconName), text);
    action->setShortcut(QKeySequence(key));
    action->setData(side);
    m_sides->addAction(action);
}

void SurfaceMenu::addExaggeration(QMenu& menu, const QString& text, double factor)
{
    QAction* const action = menu.addAction(text);
    action->setCheckable(true);
    action->setData(factor);
    m_exaggerations->addAction(action);
}

void SurfaceMenu::showState()
{
    const bool isSurface = VelUtilSurfaceIsShown() != 0;
    m_sides->setEnabled(VelUtilViewCanRotate() != 0);
    m_exaggerations->setEnabled(isSurface);
    m_clipColors->setEnabled(isSurface);
    m_clipColors->setChecked(VelUtilSurfaceColorsAreClipped() != 0);
    const QList<QAction*> actions = m_exaggerations->actions();
    for (QAction* const action : actions)
        action->setChecked(action->data().toDouble() == VelUtilSurfaceGetExaggeration());
}

void SurfaceMenu::lookFrom(QAction* action)
{
    VelUtilViewFrom(action->data().toInt());
}

void SurfaceMenu::setExaggeration(QAction* action)
{
    VelUtilSurfaceSetExaggeration(action->data().toDouble());
}

void SurfaceMenu::clipColors(bool clipped)
{
    VelUtilSurfaceClipColors(clipped ? 1 : 0);
}

} // namespace viewer
