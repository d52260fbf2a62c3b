#include "engine/page/Page.h"

#include "engine/core/Busy.h"
#include "engine/gl/GLFunctions.h"
#include "engine/plot/Plot.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <malloc.h>
#include <utility>

namespace velmora::engine {

using velmora::sdk::integration::GLDrawAreaInterface;
using velmora::sdk::integration::PageInterface;

std::shared_ptr<Plot> Page::currentPlot() const
{
    return m_frames.empty() ? nullptr : m_frames.back().plot;
}

InchRect Page::currentFrameRect() const
{
    return m_frames.empty() ? currentPaper().printable : m_frames.back().rect;
}

DataSet Page::currentData() const
{
    return m_frames.empty() ? DataSet() : m_frames.back().data;
}

void Page::replaceFrames(std::vector<Frame> frames)
{
    m_frames = std::move(frames);
    m_framesReplaced = true;
    changed();
}

void Page::releaseObsoleteGeometry(const GLFunctions& gl)
{
    if (!m_framesReplaced)
        return;
    m_framesReplaced = false;
    m_keptGeometry.release(gl);
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
    m_area = &area;
    m_interface = page;
    changed();
}

void Page::detach(bool contextWorks)
{
    if (contextWorks && m_area && m_area->getGLContext().setCurrentGL()) {
        m_canvas.release(currentGL());
        m_keptGeometry.release(currentGL());
    }
    m_canvas.forget();
    m_keptGeometry.forget();
    m_area = nullptr;
    m_interface = nullptr;
    changed();
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

void Page::plotChanged()
{
    ++m_plotVersion;
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
