#include "tests/support/ToolkitWindows.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace velmora::test {

double displayScale(const QWidget& widget)
{
    return widget.devicePixelRatioF();
}

// The toolkit takes the server's inch for its own, however it scales.
double inchScale(const QWidget& widget)
{
    return displayScale(widget);
}

std::vector<QRect> screenGeometries()
{
    std::vector<QRect> geometries;
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* const screen : screens)
        geometries.push_back(screen->geometry());
    return geometries;
}

Display* toolkitDisplay()
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->display() : nullptr;
}

} // namespace velmora::test
