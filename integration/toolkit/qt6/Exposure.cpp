#include "integration/toolkit/Exposure.h"

#include "integration/toolkit/qt6/WaylandClient.h"

#include <QWidget>
#include <QWindow>

namespace velmora::sdk::integration::toolkit {

namespace {

// On Wayland a window in another one is shown together with it, but the toolkit tells of its exposure only when it
// changes its size.
bool isShownWithItsWindow(const QWidget& widget, const QWindow& own)
{
    const QWindow* const top = widget.window()->windowHandle();
    return isWaylandClient() && own.handle() && own.isVisible() && top && top->isExposed();
}

} // namespace

bool isReadyToSwap(const QWidget& widget)
{
    const QWindow* const own = widget.windowHandle();
    return own && (own->isExposed() || isShownWithItsWindow(widget, *own));
}

} // namespace velmora::sdk::integration::toolkit
