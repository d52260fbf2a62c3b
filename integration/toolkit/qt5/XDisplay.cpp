#include "integration/toolkit/XDisplay.h"

#include <QX11Info>

namespace velmora::sdk::integration::toolkit {

Display* xDisplay()
{
    return QX11Info::isPlatformX11() ? QX11Info::display() : nullptr;
}

int xScreen()
{
    return QX11Info::appScreen();
}

} // namespace velmora::sdk::integration::toolkit
