#include "ViewCommands.h"

#include "Icon.h"
#include "ScreenPixels.h"
#include "ToolTip.h"
#include "engine/VelUtil.h"

#include <QMenu>
#include <QToolBar>

namespace viewer {

using velmora::sdk::integration::GLDrawArea;

namespace {

constexpr double ZoomStep = 1.2; // as one notch of the wheel

} // namespace

ViewCommands::ViewCommands(QMenu& menu, QToolBar& toolBar, GLDrawArea& area, QObject* parent)
    : QObject(parent), m_area(area)
{
    QAction* const fit = menu.addAction(icon("icons/orientation-xyz.png"), tr("&Fit"), this, SLOT(fit()));
    setShortcut(*fit, QKeySequence(tr("F")));
    toolBar.addAction(fit);
    menu.addAction(tr("Reset &View"), this, SLOT(reset()), QKeySequence(Qt::Key_0));
    QAction* const in = menu.addAction(tr("Zoom I&n"), this, SLOT(zoomIn()));
    in->setShortcuts(QList<QKeySequence>() << QKeySequence(Qt::Key_Plus) << QKeySequence::ZoomIn);
    QAction* const out = menu.addAction(tr("Zoom &Out"), this, SLOT(zoomOut()));
    out->setShortcuts(QList<QKeySequence>() << QKeySequence(Qt::Key_Minus) << QKeySequence::ZoomOut);
}

void ViewCommands::fit()
{
    VelUtilViewShowAll();
}

void ViewCommands::reset()
{
    VelUtilViewFit();
}

void ViewCommands::zoomIn()
{
    zoom(ZoomStep);
}

void ViewCommands::zoomOut()
{
    zoom(1 / ZoomStep);
}

void ViewCommands::zoom(double factor)
{
    const QSize size = screenSize(m_area);
    VelUtilViewZoom(factor, size.width() / 2.0, size.height() / 2.0);
}

} // namespace viewer
