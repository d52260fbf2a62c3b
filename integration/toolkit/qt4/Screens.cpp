#include "integration/toolkit/Screens.h"

#include <QApplication>
#include <QDesktopWidget>

namespace velmora::sdk::integration::toolkit {

bool hasScreens()
{
    return QApplication::desktop() != nullptr;
}

QSizeF screenPixelsPerInch()
{
    const QDesktopWidget& desktop = *QApplication::desktop();
    return QSizeF(desktop.logicalDpiX(), desktop.logicalDpiY());
}

QSize sizeOfAllScreens()
{
    return QApplication::desktop()->size();
}

} // namespace velmora::sdk::integration::toolkit
