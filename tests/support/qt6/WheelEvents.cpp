#include "tests/support/WheelEvents.h"

namespace velmora::test {

QWheelEvent wheelEvent(const QPoint& position, const QPoint& onScreen, int delta, Qt::MouseButtons held,
                       Qt::KeyboardModifiers modifiers, Qt::Orientation orientation)
{
    const QPoint angle = orientation == Qt::Vertical ? QPoint(0, delta) : QPoint(delta, 0);
    return QWheelEvent(position, onScreen, QPoint(), angle, held, modifiers, Qt::NoScrollPhase, false);
}

WheelFacts wheelFacts(const QWheelEvent& event)
{
    const QPoint angle = event.angleDelta();
    const bool isHorizontal = angle.x() != 0;
    return {event.position().toPoint(), event.globalPosition().toPoint(), isHorizontal ? angle.x() : angle.y(),
            isHorizontal ? Qt::Horizontal : Qt::Vertical};
}

std::vector<std::unique_ptr<QWheelEvent>> wheelEventsOf(const QPoint& turned, const QPoint& pixels)
{
    std::vector<std::unique_ptr<QWheelEvent>> events;
    events.push_back(std::make_unique<QWheelEvent>(QPointF(), QPointF(), pixels, turned, Qt::NoButton, Qt::NoModifier,
                                                   Qt::NoScrollPhase, false));
    return events;
}

bool wheelEventsHavePixels()
{
    return true;
}

} // namespace velmora::test
