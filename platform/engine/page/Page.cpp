#include "engine/page/Page.h"

#include "engine/core/Busy.h"
#include "engine/gl/GLFunctions.h"
#include "engine/page/WindowSystemContext.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <malloc.h>
#include <optional>
#include <utility>

namespace velmora::engine {

using velmora::sdk::integration::GLDrawAreaInterface;
using velmora::sdk::integration::PageInterface;

namespace {

// Not the page's own list: what a content does meanwhile may come back to the page. Of a context that is gone, foreign
// contents give back what they had too, and take nothing away from another that is current.
void dismiss(const std::vector<std::shared_ptr<Content>>& leaving, unsigned long context, bool isCurrent)
{
    std::optional<NoWindowSystemContext> none;
    if (!isCurrent && !leaving.empty())
        none.emplace();
    for (const std::shared_ptr<Content>& content : leaving)
        content->leaveContext(context, isCurrent);
}

} // namespace

std::shared_ptr<Content> Page::currentContent() const
{
    return m_frames.empty() ? nullptr : m_frames.back().content;
}

InchRect Page::currentFrameRect() const
{
    return m_frames.empty() ? currentPaper().printable : m_frames.back().rect;
}

void Page::replaceFrames(std::vector<Frame> frames)
{
    if (m_area)
        for (const Frame& frame : m_frames)
            m_obsolete.push_back(frame.content);
    m_frames = std::move(frames);
    changed();
}

void Page::dismissObsoleteContents()
{
    if (m_obsolete.empty())
        return;
    dismiss(std::exchange(m_obsolete, {}), m_contextNumber, true);
    // A data set and its geometry are thousands of pieces, and the allocator keeps small pieces for the process.
    malloc_trim(0);
}

void Page::fitFramesToPaper()
{
    fitFramesInto(m_frames, currentPaper().printable);
    changed();
}

void Page::attach(GLDrawAreaInterface& area, PageInterface* page)
{
    static unsigned long contexts = 0;
    m_area = &area;
    m_interface = page;
    m_contextNumber = ++contexts;
    changed();
}

void Page::detach(bool contextWorks)
{
    const bool isCurrent = contextWorks && m_area && m_area->getGLContext().setCurrentGL();
    if (isCurrent)
        m_canvas.release(currentGL());
    m_canvas.forget();
    leaveContext(isCurrent);
    m_area = nullptr;
    m_interface = nullptr;
    changed();
}

void Page::leaveContext(bool isCurrent)
{
    if (!m_area)
        return;
    for (const Frame& frame : m_frames)
        m_obsolete.push_back(frame.content);
    dismiss(std::exchange(m_obsolete, {}), m_contextNumber, isCurrent);
}

bool Page::canShow() const
{
    if (!m_area || !m_area->isVisible() || !m_area->isValidWidget())
        return false;
    int width = 0;
    int height = 0;
    m_area->getSize(&width, &height);
    return width > 0 && height > 0;
}

void Page::changed()
{
    m_mark.reset();
    ++m_generation;
    wait();
}

void Page::contentChanged()
{
    ++m_contentVersion;
    changed();
}

void Page::finishPicture()
{
    if (m_state == PictureState::Interrupted)
        wait();
}

void Page::wait()
{
    m_state = PictureState::Waiting;
    if (canShow())
        requestTurn();
}

} // namespace velmora::engine
