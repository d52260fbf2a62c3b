#include "integrationmanager/PageManager.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "integrationmanager/Page.h"
#include "integrationmanager/PageTrackers.h"

#include <algorithm>

namespace velmora::sdk::integration::intern {

namespace {

[[noreturn]] void refuse()
{
    const std::string reason = VelUtilLastErrorMessage();
    throw ExceptionBase(reason.empty() ? "The engine has no page for the drawing area." : reason, false);
}

} // namespace

PageManager::PageManager() = default;

PageManager::~PageManager()
{
    forgetPageManager(*this);
}

void PageManager::close()
{
    // Through detachDrawArea one by one: what reacts to it may detach other areas itself.
    while (!m_pages.empty())
        detachDrawArea(*m_pages.back()->getDrawArea());
    m_open = false;
}

PageInterface& PageManager::attachDrawArea(GLDrawAreaInterface& area)
{
    if (PageInterface* const page = pageOf(area))
        return *page;
    if (!m_open)
        throw ExceptionBase("A drawing area cannot show a page: start the manager first.", false);
    auto page = std::make_unique<Page>(area);
    const int number = VelEngPageAttachDrawArea(&area, page.get());
    if (number <= 0)
        refuse();
    page->setPageNumber(number);
    m_pages.push_back(std::move(page));
    return *m_pages.back();
}

void PageManager::detachDrawArea(GLDrawAreaInterface& area)
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&area](const auto& page) { return page->getDrawArea() == &area; });
    if (found == m_pages.end())
        return;
    // Out of the list first: the engine may ask for the area's page while it lets go of it.
    const std::unique_ptr<Page> page = std::move(*found);
    m_pages.erase(found);
    VelEngPageDetachDrawArea(page->pageNumber());
    tellPageTrackersOfDetachedArea(*this, area);
}

void PageManager::exposeDrawArea(GLDrawAreaInterface& area, bool sizeChanged)
{
    if (const PageInterface* const page = pageOf(area))
        VelEngPageExpose(page->pageNumber(), sizeChanged ? 1 : 0);
}

void PageManager::activateDrawArea(GLDrawAreaInterface& area)
{
    if (const PageInterface* const page = pageOf(area))
        VelEngPageActivate(page->pageNumber());
}

PageInterface* PageManager::pageOf(const GLDrawAreaInterface& area) const
{
    for (const auto& page : m_pages)
        if (page->getDrawArea() == &area)
            return page.get();
    return nullptr;
}

} // namespace velmora::sdk::integration::intern
