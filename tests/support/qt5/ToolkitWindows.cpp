#include "tests/support/ToolkitWindows.h"

#include <QWidget>
#include <QX11Info>

namespace velmora::test {

double displayScale(const QWidget& widget)
{
    return widget.devicePixelRatioF();
}

Display* toolkitDisplay()
{
    return QX11Info::display();
}

} // namespace velmora::test
