#include "integration/toolkit/DisplayScale.h"

#include <QWidget>
#include <QWindow>

namespace velmora::sdk::integration::toolkit {

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

} // namespace velmora::sdk::integration::toolkit
