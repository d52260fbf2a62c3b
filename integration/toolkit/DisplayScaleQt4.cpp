#include "integration/toolkit/DisplayScale.h"

#include <QDesktopWidget>
#include <QMouseEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::toolkit {

double screenPixelsPerPixel(const QWidget&)
{
    return 1;
}

QSize screenSize(const QWidget& widget)
{
    return widget.size();
}

QSize screenSize(const QDesktopWidget& desktop)
{
    return desktop.size();
}

QPoint screenPosition(const QMouseEvent& event, const QObject&)
{
    return event.pos();
}

QPoint screenPosition(const QWheelEvent& event, const QObject&)
{
    return event.pos();
}

std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event)
{
    return std::make_unique<QMouseEvent>(event.type(), event.pos(), event.globalPos(), event.button(), event.buttons(),
                                         event.modifiers());
}

} // namespace velmora::sdk::integration::toolkit
