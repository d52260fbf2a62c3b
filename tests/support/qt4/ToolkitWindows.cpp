#include "tests/support/ToolkitWindows.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QX11Info>

namespace velmora::test {

double displayScale(const QWidget&)
{
    return 1;
}

double inchScale(const QWidget&)
{
    return 1;
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

// It reads when it processes events.
bool toolkitHasReadAll()
{
    return true;
}

} // namespace velmora::test
