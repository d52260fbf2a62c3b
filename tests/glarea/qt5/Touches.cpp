#include "tests/glarea/Touches.h"

#include <QCoreApplication>
#include <QNativeGestureEvent>
#include <QTouchEvent>
#include <QWidget>

namespace velmora::test {

namespace {

void sendPad(QWidget& widget, Qt::NativeGestureType type, double value)
{
    const QPointF middle = widget.rect().center();
    QNativeGestureEvent event(type, nullptr, middle, middle, middle, value, 0, 0);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

void sendTouchCancel(QWidget& widget)
{
    QTouchEvent event(QEvent::TouchCancel);
    QCoreApplication::sendEvent(&widget, &event);
}

void sendPadZoom(QWidget& widget, double part)
{
    sendPad(widget, Qt::ZoomNativeGesture, part);
}

void sendPadTurn(QWidget& widget, double degrees)
{
    sendPad(widget, Qt::RotateNativeGesture, degrees);
}

} // namespace velmora::test
