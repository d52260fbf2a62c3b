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

namespace {

std::unique_ptr<QWheelEvent> eventOf(const QPoint& turned, const QPoint& pixels, int delta, Qt::Orientation orientation)
{
    return std::make_unique<QWheelEvent>(QPointF(), QPointF(), pixels, turned, delta, orientation, Qt::NoButton,
                                         Qt::NoModifier, Qt::NoScrollPhase);
}

} // namespace

// As the toolkit's own window system interface makes them.
std::vector<std::unique_ptr<QWheelEvent>> wheelEventsOf(const QPoint& turned, const QPoint& pixels)
{
    std::vector<std::unique_ptr<QWheelEvent>> events;
    if (turned.x() == 0 || turned.y() != 0)
        events.push_back(eventOf(turned, pixels, turned.y(), Qt::Vertical));
    else
        events.push_back(eventOf(turned, pixels, turned.x(), Qt::Horizontal));
    if (turned.x() != 0 && turned.y() != 0)
        events.push_back(eventOf(QPoint(), QPoint(), turned.x(), Qt::Horizontal));
    return events;
}

bool wheelEventsHavePixels()
{
    return true;
}

} // namespace velmora::test
