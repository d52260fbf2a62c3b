#include "integration/toolkit/InputEvents.h"

#include "integration/toolkit/ReceiverScale.h"

#include <QMouseEvent>
#include <QShortcutEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::toolkit {

// The toolkit rounds a widget's position to its own pixels, but not that in the window, which still tells
// what was rounded off.
QPoint screenPosition(const QMouseEvent& event, const QObject& receiver)
{
    const double scale = scaleFor(receiver);
    if (scale == 1)
        return event.pos();
    const QPointF roundedOff = event.windowPos() - event.windowPos().toPoint();
    return ((event.pos() + roundedOff) * scale).toPoint();
}

QPoint screenPosition(const QWheelEvent& event, const QObject& receiver)
{
    return (event.posF() * scaleFor(receiver)).toPoint();
}

// A turn in both directions comes as two events: the first has both as a point, the second tells the horizontal one
// once more and has no point.
WheelTurns turnsOf(const QWheelEvent& event)
{
    if (!event.angleDelta().isNull())
        return WheelTurns::ofAngle(event.angleDelta());
    return event.delta() == 0 ? WheelTurns::ofPixels(event.pixelDelta()) : WheelTurns();
}

int firstKeyOf(const QShortcutEvent& event)
{
    return event.key()[0];
}

std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event)
{
    return std::make_unique<QMouseEvent>(event.type(), event.localPos(), event.windowPos(), event.screenPos(),
                                         event.button(), event.buttons(), event.modifiers());
}

std::unique_ptr<QWheelEvent> copyOf(const QWheelEvent& event)
{
    return std::make_unique<QWheelEvent>(event.posF(), event.globalPosF(), event.pixelDelta(), event.angleDelta(),
                                         event.delta(), event.orientation(), event.buttons(), event.modifiers(),
                                         event.phase(), event.source(), event.inverted());
}

} // namespace velmora::sdk::integration::toolkit
