#include "engine/export/ViewStamp.h"

#include "engine/page/Pages.h"

#include <algorithm>

namespace velmora::engine {
namespace {

bool sameRect(const InchRect& a, const InchRect& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

bool sameFrame(const Frame& a, const Frame& b)
{
    return a.content == b.content && sameRect(a.rect, b.rect);
}

bool samePaper(const Paper& a, const Paper& b)
{
    return a.width == b.width && a.height == b.height && sameRect(a.printable, b.printable);
}

} // namespace

ViewStamp::ViewStamp()
    : m_page(pages().active()), m_contentVersion(m_page->contentVersion()), m_frames(m_page->frames()),
      m_paper(currentPaper())
{}

bool ViewStamp::isCurrent() const
{
    return pages().active() == m_page && m_page->contentVersion() == m_contentVersion &&
           std::equal(m_frames.begin(), m_frames.end(), m_page->frames().begin(), m_page->frames().end(), sameFrame) &&
           samePaper(currentPaper(), m_paper);
}

} // namespace velmora::engine
