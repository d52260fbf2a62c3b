#include "integration/toolkit/DisplayScale.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>
#include <memory>

namespace velmora::sdk::integration::toolkit {

namespace {

/// Where the widget is in the nearest widget around it that has a native window.
QRect placeInNativeParent(const QWidget& widget)
{
    const QWidget* const parent = widget.nativeParentWidget();
    return QRect(parent ? widget.mapTo(const_cast<QWidget*>(parent), QPoint()) : widget.pos(), widget.size());
}

class ScreenFollower : public QObject {
public:
    explicit ScreenFollower(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        QWidget& widget = *static_cast<QWidget*>(watched);
        if (event->type() == QEvent::ScreenChangeInternal && !widget.isWindow() && widget.windowHandle()) {
            widget.windowHandle()->setGeometry(placeInNativeParent(widget));
            widget.update();
        }
        return false;
    }
};

} // namespace

// Of the window where there is one: the widget itself tells it in whole 65536ths only, with which 1.1 times
// 505 is rounded down. A widget's own window first: on Wayland its picture is as large as that one is scaled, and
// on another screen it may come to it earlier or later than the window around it.
double screenPixelsPerPixel(const QWidget& widget)
{
    const QWindow* const own = widget.windowHandle();
    const QWindow* const window = own ? own : widget.window()->windowHandle();
    return window ? window->devicePixelRatio() : widget.devicePixelRatioF();
}

QSize screenSize(const QWidget& widget)
{
    return widget.size() * screenPixelsPerPixel(widget);
}

void followScreenScale(QWidget& widget)
{
    std::make_unique<ScreenFollower>(widget).release(); // the widget owns it
}

} // namespace velmora::sdk::integration::toolkit
