#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace viewer {

/// The commands that make the axes of lines logarithmic.
class AxisScales : public QObject {
    Q_OBJECT

public:
    /// Adds its commands to the menu.
    AxisScales(QMenu& menu, QObject* parent);

public Q_SLOTS:
    /// Shows which axes are logarithmic now, and which can be.
    void showState();

Q_SIGNALS:
    /// What a person should know about the change, in one sentence.
    void told(const QString& note);

private Q_SLOTS:
    void setScaleX(bool logarithmic);
    void setScaleY(bool logarithmic);

private:
    void setScale(int axis, bool logarithmic);

    QAction* m_x;
    QAction* m_y;
};

} // namespace viewer
