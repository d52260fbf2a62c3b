#include "integration/toolkit/InputEvents.h"

#include "integration/toolkit/ReceiverScale.h"

#include <QMouseEvent>
#include <QShortcutEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::toolkit {

// The toolkit may round a widget's position to its own pixels, but not that in the window, which still tells
// what was rounded off.
QPoint screenPosition(const QMouseEvent& event, const QObject& receiver)
{
    const double scale = scaleFor(receiver);
    const QPoint position = event.position().toPoint();
    if (scale == 1)
        return position;
    const QPointF roundedOff = event.scenePosition() - event.scenePosition().toPoint();
    return ((position + roundedOff) * scale).toPoint();
}

QPoint screenPosition(const QWheelEvent& event, const QObject& receiver)
{
    return (event.position() * scaleFor(receiver)).toPoint();
}

WheelTurns turnsOf(const QWheelEvent& event)
{
    return event.angleDelta().isNull() ? WheelTurns::ofPixels(event.pixelDelta())
                                       : WheelTurns::ofAngle(event.angleDelta());
}

int firstKeyOf(const QShortcutEvent& event)
{
    return event.key()[0].toCombined();
}

std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event)
{
    return std::make_unique<QMouseEvent>(event.type(), event.position(), event.scenePosition(), event.globalPosition(),
                                         event.button(), event.buttons(), event.modifiers());
}

std::unique_ptr<QWheelEvent> copyOf(const QWheelEvent& event)
{
    return std::make_unique<QWheelEvent>(event.position(), event.globalPosition(), event.pixelDelta(),
                                         event.angleDelta(), event.buttons(), event.modifiers(), event.phase(),
                                         event.inverted());
}

} // namespace velmora::sdk::integration::toolkit
