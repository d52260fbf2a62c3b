#include "integration/toolkit/Exposure.h"

#include <QWidget>
#include <QWindow>

namespace velmora::sdk::integration::toolkit {

bool isReadyToSwap(const QWidget& widget)
{
    const QWindow* const window = widget.windowHandle();
    return window && window->isExposed();
}

} // namespace velmora::sdk::integration::toolkit
