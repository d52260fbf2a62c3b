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

} // namespace velmora::test
