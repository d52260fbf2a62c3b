#include "ViewSteps.h"

#include "ScreenPixels.h"
#include "engine/VelUtil.h"

#include <QActionGroup>
#include <QMenu>
#include <QPoint>

namespace viewer {

using velmora::sdk::integration::GLDrawArea;

namespace {

constexpr double DegreesPerStep = 5.0;
constexpr double MovedPart = 0.05; // of the area's width or height

// As on the screen.
const QPoint Left(-1, 0);
const QPoint Right(1, 0);
const QPoint Up(0, -1);
const QPoint Down(0, 1);

QKeySequence arrowTo(const QPoint& direction)
{
    if (direction.x() != 0)
        return QKeySequence(direction == Left ? Qt::Key_Left : Qt::Key_Right);
    return QKeySequence(direction == Up ? Qt::Key_Up : Qt::Key_Down);
}

} // namespace

ViewSteps::ViewSteps(QMenu& parentMenu, GLDrawArea& area, QObject* parent)
    : QObject(parent), m_area(area), m_turns(new QActionGroup(this)), m_moves(new QActionGroup(this))
{
    QMenu& menu = *parentMenu.addMenu(tr("Ti&lt or Move"));
    add(menu, *m_turns, tr("Turn &Left"), arrowTo(Left), Left);
    add(menu, *m_turns, tr("Turn &Right"), arrowTo(Right), Right);
    add(menu, *m_turns, tr("Tilt &Up"), arrowTo(Up), Up);
    add(menu, *m_turns, tr("Tilt &Down"), arrowTo(Down), Down);
    menu.addSeparator();
    add(menu, *m_moves, tr("Move Le&ft"), QKeySequence(Qt::SHIFT + Qt::Key_Left), Left);
    add(menu, *m_moves, tr("Move Ri&ght"), QKeySequence(Qt::SHIFT + Qt::Key_Right), Right);
    add(menu, *m_moves, tr("Move U&p"), QKeySequence(Qt::SHIFT + Qt::Key_Up), Up);
    add(menu, *m_moves, tr("Move D&own"), QKeySequence(Qt::SHIFT + Qt::Key_Down), Down);
    connect(m_turns, SIGNAL(triggered(QAction*)), this, SLOT(turn(QAction*)));
    connect(m_moves, SIGNAL(triggered(QAction*)), this, SLOT(move(QAction*)));
    showState();
}

// Two actions, because the keys of a menu's action count in the menu bar too, where the arrows are to lead from menu to
// menu.
void ViewSteps::add(QMenu& menu, QActionGroup& group, const QString& text, const QKeySequence& key,
                    const QPoint& direction)
{
    QAction* const command = menu.addAction(text + QLatin1Char('\t') + key.toString(QKeySequence::NativeText));
    QAction* const keyOfArea = new QAction(text, &m_area);
    keyOfArea->setShortcut(key);
    keyOfArea->setShortcutContext(Qt::WidgetShortcut);
    m_area.addAction(keyOfArea);
    for (QAction* const action : {command, keyOfArea}) {
        action->setData(direction);
        group.addAction(action);
    }
}

void ViewSteps::showState()
{
    const bool turns = VelUtilViewCanRotate() != 0;
    const bool hasData = *VelUtilDataDescription() != '\0';
    m_turns->setEnabled(turns);
    m_moves->setEnabled(hasData);
    const QList<QAction*> moves = m_moves->actions();
    for (QAction* const action : moves) {
        if (action->shortcuts().isEmpty()) // the menu's
            continue;
        const QKeySequence arrow = arrowTo(action->data().toPoint());
        const QKeySequence withShift = action->shortcuts().last();
        const bool isBare = hasData && !turns;
        action->setShortcuts(isBare ? QList<QKeySequence>() << arrow << withShift : QList<QKeySequence>() << withShift);
    }
}

void ViewSteps::turn(QAction* step)
{
    const QPoint direction = step->data().toPoint();
    VelUtilViewRotate(direction.x() * DegreesPerStep, direction.y() * DegreesPerStep);
}

void ViewSteps::move(QAction* step)
{
    const QPoint direction = step->data().toPoint();
    const QSize size = screenSize(m_area);
    VelUtilViewTranslate(direction.x() * MovedPart * size.width(), direction.y() * MovedPart * size.height());
}

} // namespace viewer
