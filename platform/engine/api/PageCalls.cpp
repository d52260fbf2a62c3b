// Pages in drawing areas, for the binding; and the state of the active page's picture.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/page/ScreenDrawing.h"
#include "interfaces/GLDrawAreaInterface.h"

using namespace velmora::engine;
using PictureState = Page::PictureState;

int VelEngPageAttachDrawArea(velmora::sdk::integration::GLDrawAreaInterface* area,
                             velmora::sdk::integration::PageInterface* pageInterface)
{
    if (!requireRunning())
        return 0;
    if (!area) {
        setLastError("There is no drawing area to give a page to.");
        return 0;
    }
    std::shared_ptr<Page> page = pages().findByArea(*area);
    if (!page) {
        page = pages().freePage();
        page->attach(*area, pageInterface);
    }
    pages().activate(page);
    return page->number();
}

void VelEngPageDetachDrawArea(int pageNumber)
{
    if (const std::shared_ptr<Page> page = pages().find(pageNumber))
        page->detach(true);
}

void VelEngPageExpose(int pageNumber, int)
{
    if (const std::shared_ptr<Page> page = pages().find(pageNumber))
        exposePage(page);
}

void VelEngPageActivate(int pageNumber)
{
    if (const std::shared_ptr<Page> page = pages().find(pageNumber))
        pages().activate(page);
}

int VelEngPageGetActive()
{
    return pages().active() ? pages().active()->number() : 0;
}

int VelUtilPageIsComplete()
{
    const std::shared_ptr<Page> page = pages().active();
    return page && page->pictureState() == PictureState::Complete ? 1 : 0;
}

int VelUtilPageIsInterrupted()
{
    const std::shared_ptr<Page> page = pages().active();
    return page && page->pictureState() == PictureState::Interrupted ? 1 : 0;
}

void VelUtilPageFinish()
{
    if (requireRunning())
        pages().active()->finishPicture();
}

void VelUtilPageRedraw()
{
    if (requireRunning())
        pages().active()->changed();
}
