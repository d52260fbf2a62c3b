#include "integration/toolkit/TouchEvents.h"

#include <QMouseEvent>
#include <QNativeGestureEvent>
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
    case QEvent::TouchCancel:
        return TouchIsGivenUp;
    default:
        return NoTouch;
    }
}

std::vector<Finger> fingersOf(const QEvent& event)
{
    std::vector<Finger> fingers;
    const QList<QEventPoint> points = static_cast<const QTouchEvent&>(event).points();
    for (const QEventPoint& point : points)
        fingers.push_back({point.id(), point.position(), point.state() != QEventPoint::Released});
    return fingers;
}

bool readPadGesture(const QEvent& event, PadGesture& gesture)
{
    if (event.type() != QEvent::NativeGesture)
        return false;
    const QNativeGestureEvent& native = static_cast<const QNativeGestureEvent&>(event);
    gesture.position = native.position();
    if (native.gestureType() == Qt::ZoomNativeGesture)
        gesture.factor = 1 + native.value();
    else if (native.gestureType() == Qt::RotateNativeGesture)
        gesture.degrees = native.value();
    else
        return false;
    return true;
}

std::unique_ptr<QMouseEvent> newLeftButtonEvent(QEvent::Type type, const QPointF& position, const QWidget& receiver,
                                                Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const QPointF inWindow = position + receiver.mapTo(receiver.window(), QPoint());
    const QPointF onScreen = position + receiver.mapToGlobal(QPoint());
    return std::make_unique<QMouseEvent>(type, position, inWindow, onScreen, button, held, modifiers);
}

std::unique_ptr<QWheelEvent> newWheelEvent(const WheelTurn& turn, const QPointF& position, const QWidget& receiver,
                                           Qt::KeyboardModifiers modifiers)
{
    const QPointF onScreen = position + receiver.mapToGlobal(QPoint());
    const QPoint angle = turn.isVertical ? QPoint(0, turn.delta) : QPoint(turn.delta, 0);
    return std::make_unique<QWheelEvent>(position, onScreen, QPoint(), angle, Qt::NoButton, modifiers,
                                         Qt::NoScrollPhase, false);
}

} // namespace velmora::sdk::integration::toolkit
