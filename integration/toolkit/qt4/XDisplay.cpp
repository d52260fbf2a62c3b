#include "integration/toolkit/XDisplay.h"

#include <QX11Info>

namespace velmora::sdk::integration::toolkit {

Display* xDisplay()
{
    return QX11Info::display();
}

int xScreen()
{
    return QX11Info::appScreen();
}

} // namespace velmora::sdk::integration::toolkit
