#include "engine/page/Pages.h"

#include "engine/style/StyleTree.h"

#include <algorithm>

namespace velmora::engine {
namespace {

// The empty path stands for everything.
void styleChanged(std::string_view path)
{
    const bool matters = path.empty() || path.rfind("Paper/", 0) == 0 || path == "Interface/ShowPaper";
    if (!matters)
        return;
    for (const std::shared_ptr<Page>& page : pages().all())
        page->changed();
}

void watchStyle()
{
    static const bool watching = (style::tree().addObserver(styleChanged), true);
    static_cast<void>(watching);
}

} // namespace

void Pages::begin()
{
    watchStyle();
    m_pages = {std::make_shared<Page>(1)};
    m_active = m_pages.front();
}

void Pages::end()
{
    const std::vector<std::shared_ptr<Page>> leaving = std::move(m_pages);
    m_pages.clear();
    m_active.reset();
    for (const std::shared_ptr<Page>& page : leaving)
        page->detach(false);
}

std::shared_ptr<Page> Pages::find(int number) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [number](const auto& page) { return page->number() == number; });
    return found == m_pages.end() ? nullptr : *found;
}

velmora::sdk::integration::PageInterface* Pages::activeInterface() const
{
    return m_active ? m_active->interface() : nullptr;
}

std::shared_ptr<Page> Pages::findByArea(const velmora::sdk::integration::GLDrawAreaInterface& area) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [&area](const auto& page) { return page->area() == &area; });
    return found == m_pages.end() ? nullptr : *found;
}

std::shared_ptr<Page> Pages::freePage()
{
    const auto free = std::find_if(m_pages.begin(), m_pages.end(), [](const auto& page) { return !page->area(); });
    if (free != m_pages.end())
        return *free;
    m_pages.push_back(std::make_shared<Page>(static_cast<int>(m_pages.size()) + 1));
    return m_pages.back();
}

std::shared_ptr<Page> Pages::nextWaiting() const
{
    const auto waits = [](const auto& page) {
        return page->pictureState() == Page::PictureState::Waiting && page->canShow();
    };
    const auto found = std::find_if(m_pages.begin(), m_pages.end(), waits);
    return found == m_pages.end() ? nullptr : *found;
}

Pages& pages()
{
    static Pages all;
    return all;
}

} // namespace velmora::engine
