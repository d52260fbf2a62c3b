#include "tests/support/DisplayScale.h"

#include <QWidget>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

namespace velmora::test {

QPoint inScreenPixels(const QWidget& widget, const QPoint& position)
{
    return position * displayScale(widget);
}

QSize inScreenPixels(const QWidget& widget, const QSize& size)
{
    return size * displayScale(widget);
}

QRect inScreenPixels(const QWidget& widget, const QRect& rect)
{
    return QRect(inScreenPixels(widget, rect.topLeft()), inScreenPixels(widget, rect.size()));
}

// The server is asked where the window is: what the toolkit knows of that may be rounded.
QPoint placeOnScreen(const QWidget& widget, const QPoint& position)
{
    const QWidget* const native = widget.internalWinId() ? &widget : widget.nativeParentWidget();
    if (!native)
        return inScreenPixels(widget, widget.mapToGlobal(position));
    const QPoint inWindow = inScreenPixels(widget, widget.mapTo(const_cast<QWidget*>(native), position));
    Display* const display = toolkitDisplay();
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(display, native->internalWinId(), DefaultRootWindow(display), inWindow.x(), inWindow.y(), &x,
                          &y, &child);
    return QPoint(x, y);
}

} // namespace velmora::test
