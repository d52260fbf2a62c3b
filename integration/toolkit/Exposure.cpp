#include "integration/toolkit/Exposure.h"

#include <QWidget>
#if QT_VERSION >= 0x050000
#include <QWindow>
#endif

namespace velmora::sdk::integration::toolkit {

#if QT_VERSION >= 0x050000

bool isReadyToSwap(const QWidget& widget)
{
    const QWindow* const window = widget.windowHandle();
    return window && window->isExposed();
}

#else

bool isReadyToSwap(const QWidget&)
{
    return true;
}

#endif

} // namespace velmora::sdk::integration::toolkit
