#pragma once

#include <QObject>

class QAction;
class QActionGroup;
class QMenu;

namespace viewer {

/// The commands for surfaces alone: to look from above or from a side, and how heights and colours show.
class SurfaceMenu : public QObject {
    Q_OBJECT

public:
    /// Adds itself to the menu.
    SurfaceMenu(QMenu& parentMenu, QObject* parent);

    /// Shows what the surface looks like; without one nothing can be chosen.
    void showState();

private Q_SLOTS:
    void lookFrom(QAction* action);
    void setExaggeration(QAction* action);
    void clipColors(bool clipped);

private:
    void addSide(QMenu& menu, const char* iconName, const QString& text, int key, int side);
    void addExaggeration(QMenu& menu, const QString& text, double factor);

    QActionGroup* m_sides;
    QActionGroup* m_exaggerations;
    QAction* m_clipColors;
};

} // namespace viewer
