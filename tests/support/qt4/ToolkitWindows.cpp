#include "tests/support/ToolkitWindows.h"

#include <QX11Info>

namespace velmora::test {

double displayScale(const QWidget&)
{
    return 1;
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
