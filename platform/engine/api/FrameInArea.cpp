#include "engine/api/FrameInArea.h"

#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "interfaces/GLDrawAreaInterface.h"

namespace velmora::engine {

bool findFrame(const Page& page, FrameInArea& found)
{
    if (!page.area())
        return false;
    int width = 0;
    page.area()->getSize(&width, &found.areaHeight);
    if (width < 1 || found.areaHeight < 1)
        return false;
    found.rect = workAreaView(page, width, found.areaHeight).toPixels(page.currentFrameRect());
    return true;
}

} // namespace velmora::engine
