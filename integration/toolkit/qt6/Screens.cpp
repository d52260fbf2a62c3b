#include "integration/toolkit/Screens.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace velmora::sdk::integration::toolkit {

bool hasScreens()
{
    return QGuiApplication::primaryScreen() != nullptr;
}

// The toolkit tells how many of its own pixels are an inch.
QSizeF screenPixelsPerInch()
{
    const QScreen& screen = *QGuiApplication::primaryScreen();
    return QSizeF(screen.logicalDotsPerInchX(), screen.logicalDotsPerInchY()) * screen.devicePixelRatio();
}

// Each screen is scaled by itself; its place among the others is not scaled at all.
QSize sizeOfAllScreens()
{
    QRect all;
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* const screen : screens)
        all |= QRect(screen->geometry().topLeft(), screen->size() * screen->devicePixelRatio());
    return all.size();
}

} // namespace velmora::sdk::integration::toolkit
