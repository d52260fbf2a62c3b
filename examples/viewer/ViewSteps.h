#pragma once

#include <QKeySequence>
#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QPoint;

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

/// The commands that turn, tilt and move the picture step by step, as dragging does without steps. Their arrow keys
/// are the plot's: they count while it has the focus, so that lists and fields keep theirs.
class ViewSteps : public QObject {
    Q_OBJECT

public:
    /// Adds its commands to the menu.
    ViewSteps(QMenu& parentMenu, velmora::sdk::integration::GLDrawArea& area, QObject* parent);

    /// Enables what can be done with what the plot shows. Lines do not turn: the bare arrow keys move them.
    void showState();

private Q_SLOTS:
    void turn(QAction* step);
    void move(QAction* step);

private:
    void add(QMenu& menu, QActionGroup& group, const QString& text, const QKeySequence& key, const QPoint& direction);

    velmora::sdk::integration::GLDrawArea& m_area;
    QActionGroup* m_turns;
    QActionGroup* m_moves;
};

} // namespace viewer
