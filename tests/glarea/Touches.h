#pragma once

class QWidget;

namespace velmora::test {

// What QTest does not send: the window system gives a touch up, and two fingers on a touch pad go apart or turn
// clockwise in the middle of the widget.

void sendTouchCancel(QWidget& widget);
/// By how much of their distance.
void sendPadZoom(QWidget& widget, double part);
void sendPadTurn(QWidget& widget, double degrees);

} // namespace velmora::test
