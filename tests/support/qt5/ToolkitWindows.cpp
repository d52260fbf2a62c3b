#include "tests/support/ToolkitWindows.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QWidget>
#include <QX11Info>
#include <algorithm>

namespace velmora::test {

double displayScale(const QWidget& widget)
{
    return widget.devicePixelRatioF();
}

// The toolkit keeps the server's inch when it scales a screen alone, and takes it for its own when it scales
// everything.
double inchScale(const QWidget&)
{
    return std::max(1.0, qgetenv("QT_SCALE_FACTOR").toDouble());
}

std::vector<QRect> screenGeometries()
{
    const QDesktopWidget& desktop = *QApplication::desktop();
    std::vector<QRect> geometries;
    for (int number = 0; number < desktop.screenCount(); ++number)
        geometries.push_back(desktop.screenGeometry(number));
    return geometries;
}

Display* toolkitDisplay()
{
    return QX11Info::display();
}

} // namespace velmora::test
