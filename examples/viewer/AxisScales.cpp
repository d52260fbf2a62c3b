#include "AxisScales.h"

#include "engine/VelUtil.h"

#include <QAction>
#include <QMenu>

namespace viewer {

namespace {

// As the engine numbers them.
constexpr int X = 0;
constexpr int Y = 1;

void showScale(QAction& action, int axis)
{
    action.setEnabled(VelUtilAxisCanBeLogarithmic(axis) != 0);
    action.setChecked(VelUtilAxisIsLogarithmic(axis) != 0);
}

} // namespace

AxisScales::AxisScales(QMenu& menu, QObject* parent)
    : QObject(parent), m_x(menu.addAction(tr("Logarithmic &x"))), m_y(menu.addAction(tr("Logarithmic &y")))
{
    m_x->setCheckable(true);
    m_y->setCheckable(true);
    m_x->setShortcut(QKeySequence(tr("X")));
    m_y->setShortcut(QKeySequence(tr("Y")));
    connect(m_x, SIGNAL(triggered(bool)), this, SLOT(setScaleX(bool)));
    connect(m_y, SIGNAL(triggered(bool)), this, SLOT(setScaleY(bool)));
    showState();
}

void AxisScales::showState()
{
    showScale(*m_x, X);
    showScale(*m_y, Y);
}

void AxisScales::setScaleX(bool logarithmic)
{
    setScale(X, logarithmic);
}

void AxisScales::setScaleY(bool logarithmic)
{
    setScale(Y, logarithmic);
}

void AxisScales::setScale(int axis, bool logarithmic)
{
    QString note;
    if (!VelUtilAxisSetLogarithmic(axis, logarithmic ? 1 : 0)) {
        note = QString::fromUtf8(VelUtilLastErrorMessage());
        VelUtilLastErrorMessageClear();
    } else if (VelUtilAxisValuesLeftOut() > 0) {
        note = tr("Values that are not shown because they are not above 0: %1.").arg(VelUtilAxisValuesLeftOut());
    }
    showState();
    Q_EMIT told(note);
}

} // namespace viewer
