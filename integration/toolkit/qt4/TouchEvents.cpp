#include "integration/toolkit/TouchEvents.h"

#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>

namespace velmora::sdk::integration::toolkit {

TouchPhase touchPhaseOf(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::TouchBegin:
        return TouchBegins;
    case QEvent::TouchUpdate:
        return TouchGoesOn;
    case QEvent::TouchEnd:
        return TouchEnds;
    default:
        return NoTouch;
    }
}

std::vector<Finger> fingersOf(const QEvent& event)
{
    std::vector<Finger> fingers;
    const QList<QTouchEvent::TouchPoint> points = static_cast<const QTouchEvent&>(event).touchPoints();
    for (const QTouchEvent::TouchPoint& point : points)
        fingers.push_back({point.id(), point.pos(), point.state() != Qt::TouchPointReleased});
    return fingers;
}

// The toolkit tells nothing of touch pads.
bool readPadGesture(const QEvent&, PadGesture&)
{
    return false;
}

std::unique_ptr<QMouseEvent> newLeftButtonEvent(QEvent::Type type, const QPointF& position, const QWidget& receiver,
                                                Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const QPoint pixel = position.toPoint();
    return std::make_unique<QMouseEvent>(type, pixel, receiver.mapToGlobal(pixel), button, held, modifiers);
}

std::unique_ptr<QWheelEvent> newWheelEvent(const WheelTurn& turn, const QPointF& position, const QWidget& receiver,
                                           Qt::KeyboardModifiers modifiers)
{
    const QPoint pixel = position.toPoint();
    return std::make_unique<QWheelEvent>(pixel, receiver.mapToGlobal(pixel), turn.delta, Qt::NoButton, modifiers,
                                         turn.isVertical ? Qt::Vertical : Qt::Horizontal);
}

} // namespace velmora::sdk::integration::toolkit
