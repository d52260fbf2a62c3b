#include "integration/toolkit/XDisplay.h"

#include <QX11Info>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

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

void FreeByXlib::operator()(void* memory) const
{
    XFree(memory);
}

} // namespace velmora::sdk::integration::toolkit
