#include "tests/support/WheelEvents.h"

namespace velmora::test {

QWheelEvent wheelEvent(const QPoint& position, const QPoint& onScreen, int delta, Qt::MouseButtons held,
                       Qt::KeyboardModifiers modifiers, Qt::Orientation orientation)
{
    return QWheelEvent(position, onScreen, delta, held, modifiers, orientation);
}

WheelFacts wheelFacts(const QWheelEvent& event)
{
    return {event.pos(), event.globalPos(), event.delta(), event.orientation()};
}

std::vector<std::unique_ptr<QWheelEvent>> wheelEventsOf(const QPoint& turned, const QPoint&)
{
    std::vector<std::unique_ptr<QWheelEvent>> events;
    if (turned.y() != 0)
        events.push_back(std::make_unique<QWheelEvent>(QPoint(), turned.y(), Qt::NoButton, Qt::NoModifier));
    if (turned.x() != 0)
        events.push_back(
            std::make_unique<QWheelEvent>(QPoint(), turned.x(), Qt::NoButton, Qt::NoModifier, Qt::Horizontal));
    return events;
}

bool wheelEventsHavePixels()
{
    return false;
}

} // namespace velmora::test
