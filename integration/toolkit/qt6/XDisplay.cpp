#include "integration/toolkit/XDisplay.h"

#include <QGuiApplication>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

namespace velmora::sdk::integration::toolkit {

Display* xDisplay()
{
    const auto* const x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->display() : nullptr;
}

int xScreen()
{
    return XDefaultScreen(xDisplay());
}

} // namespace velmora::sdk::integration::toolkit
