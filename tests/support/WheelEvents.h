#pragma once

#include <QPoint>
#include <QWheelEvent>
#include <memory>
#include <vector>

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

/// The events by which the toolkit tells of a turn in both directions at once, in eighths of a degree. `pixels` is what
/// a touch pad tells as well, or instead; without effect where the toolkit knows no such thing.
std::vector<std::unique_ptr<QWheelEvent>> wheelEventsOf(const QPoint& turned, const QPoint& pixels = QPoint());
/// Whether it knows.
bool wheelEventsHavePixels();

} // namespace velmora::test
