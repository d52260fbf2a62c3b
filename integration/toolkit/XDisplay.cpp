#include "integration/toolkit/XDisplay.h"

#include <QX11Info>

namespace velmora::sdk::integration::toolkit {

Display* xDisplay()
{
#if QT_VERSION >= 0x050000
    if (!QX11Info::isPlatformX11())
        return nullptr;
#endif
    return QX11Info::display();
}

int xScreen()
{
    return QX11Info::appScreen();
}

} // namespace velmora::sdk::integration::toolkit
