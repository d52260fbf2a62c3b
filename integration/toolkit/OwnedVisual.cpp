#include "integration/toolkit/OwnedVisual.h"

#include <X11/Xlib.h>

namespace velmora::sdk::integration::toolkit {

void FreeByXlib::operator()(void* memory) const
{
    XFree(memory);
}

} // namespace velmora::sdk::integration::toolkit
