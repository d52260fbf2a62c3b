#pragma once

#include <QPoint>
#include <QWheelEvent>

namespace velmora::test {

/// A turn of the wheel in one direction, in eighths of a degree.
QWheelEvent wheelEvent(const QPoint& position, const QPoint& onScreen, int delta, Qt::MouseButtons held,
                       Qt::KeyboardModifiers modifiers, Qt::Orientation orientation);

struct WheelFacts {
    QPoint position;
    QPoint onScreen;
    int delta;
    Qt::Orientation orientation;
};
WheelFacts wheelFacts(const QWheelEvent& event);

} // namespace velmora::test
