#include "integration/toolkit/DisplayScale.h"

#include <QDesktopWidget>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>

namespace velmora::sdk::integration::toolkit {

namespace {

double scaleFor(const QObject& receiver)
{
    return receiver.isWidgetType() ? screenPixelsPerPixel(static_cast<const QWidget&>(receiver)) : 1;
}

} // namespace

// Of the window where there is one: the widget itself tells it in whole 65536ths only, with which 1.1 times
// 505 is rounded down.
double screenPixelsPerPixel(const QWidget& widget)
{
    const QWindow* const window = widget.window()->windowHandle();
    return window ? window->devicePixelRatio() : widget.devicePixelRatioF();
}

QSize screenSize(const QWidget& widget)
{
    return widget.size() * screenPixelsPerPixel(widget);
}

// Each screen is scaled by itself; its place among the others is not scaled at all.
QSize screenSize(const QDesktopWidget&)
{
    QRect all;
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* const screen : screens)
        all |= QRect(screen->geometry().topLeft(), screen->size() * screen->devicePixelRatio());
    return all.size();
}

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

std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event)
{
    return std::make_unique<QMouseEvent>(event.type(), event.localPos(), event.windowPos(), event.screenPos(),
                                         event.button(), event.buttons(), event.modifiers());
}

} // namespace velmora::sdk::integration::toolkit
