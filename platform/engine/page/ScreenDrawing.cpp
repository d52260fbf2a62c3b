#include "engine/page/ScreenDrawing.h"

#include "engine/core/Busy.h"
#include "engine/core/LastError.h"
#include "engine/core/SlicedWork.h"
#include "engine/gl/GLFunctions.h"
#include "engine/page/GLSnapshot.h"
#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "exception/ExceptionBase.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <chrono>
#include <optional>

namespace velmora::engine {
namespace {

using velmora::sdk::integration::GLDrawAreaInterface;

struct Size {
    int width = 0;
    int height = 0;
};

Size sizeOf(const GLDrawAreaInterface& area)
{
    Size size;
    area.getSize(&size.width, &size.height);
    return size;
}

/// Goes on to the end without a turn for anybody.
class HeldBreath final : public Breath {
public:
    bool goOn(double) override { return true; }
};

GLFunctions makeCurrent(GLDrawAreaInterface& area)
{
    if (!area.getGLContext().setCurrentGL())
        throw ExceptionBase(
            "The drawing area's OpenGL context cannot be made current. Close the area and open it again.");
    const GLFunctions gl = currentGL();
    clearPendingErrors(gl);
    return gl;
}

// Without framebuffer objects the back buffer is all there is, and nobody keeps it: an exposure has
// to draw the whole picture. While the engine works it must not draw a plot, so the ground must do.
void drawDirectly(Page& page, const GLFunctions& gl, const Size& size)
{
    const Picture picture = workAreaPicture(page, size.width, size.height, 0);
    if (isBusy()) {
        paintGround(picture, gl, size.width, size.height);
        page.changed();
        return;
    }
    // Should the drawing throw, it is not to be tried again at every exposure's turn.
    page.pictureDone(Page::PictureState::Interrupted);
    HeldBreath breath;
    paintPicture(picture, gl, size.width, size.height, breath);
    page.pictureDone(Page::PictureState::Complete);
}

void expose(Page& page)
{
    GLDrawAreaInterface& area = *page.area();
    const GLFunctions gl = makeCurrent(area);
    {
        const GLStateScope keep(gl);
        const Size size = sizeOf(area);
        if (!page.canvas().prepare(gl, size.width, size.height))
            page.changed();
        if (page.canvas().isDirect())
            drawDirectly(page, gl, size);
        else
            page.canvas().show(gl);
        // While the area's own framebuffer is bound: swapping takes what was drawn into that.
        area.getGLContext().swapBuffers();
    }
    if (page.pictureState() == Page::PictureState::Waiting)
        wantTurn();
}

/// One drawing of a page, from the first slice to the last.
class ScreenWork final : public SlicedWork {
public:
    explicit ScreenWork(std::shared_ptr<Page> page)
        : SlicedWork("Drawing"), m_page(std::move(page)), m_area(m_page->area()), m_gl(makeCurrent(*m_area))
    {}

    DrawingResult draw()
    {
        const GLStateScope keep(m_gl);
        const Size size = sizeOf(*m_area);
        m_page->canvas().prepare(m_gl, size.width, size.height);
        m_generation = m_page->generation();
        return m_page->canvas().isDirect() ? drawAtOnce(size) : drawInSlices(size);
    }

protected:
    void completeSlice() override { m_gl.Finish(); }
    void beforeTurn() override { m_beforeTurn.emplace(m_gl); }

    bool afterTurn() override
    {
        if (m_page->area() != m_area || !m_area->isValidWidget() || !m_area->getGLContext().setCurrentGL()) {
            disarm(m_gl);
            return false;
        }
        m_beforeTurn->restore(m_gl);
        return m_page->generation() == m_generation;
    }

    bool isShowDue() const override { return Clock::now() - m_lastShown >= ShowInterval; }

    void show() override
    {
        if (m_page->canvas().isDirect())
            return;
        const GLStateScope keep(m_gl);
        m_page->canvas().show(m_gl);
        m_area->getGLContext().swapBuffers();
        m_lastShown = Clock::now();
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds ShowInterval{100};

    bool isMine() const { return m_page->area() == m_area; }

    DrawingResult drawInSlices(const Size& size)
    {
        m_page->canvas().begin(m_gl);
        bool finished = false;
        try {
            finished = paintPicture(workAreaPicture(*m_page, size.width, size.height, 0), m_gl, size.width, size.height,
                                    *this);
        } catch (...) {
            setLastErrorFromException("The page could not be drawn");
            return settle(DrawingResult::Failed);
        }
        return settle(finished ? DrawingResult::Done : DrawingResult::Stopped);
    }

    // What happened to the page during the drawing counts more than how the drawing ended.
    DrawingResult settle(DrawingResult result)
    {
        if (!isMine() || m_page->generation() != m_generation)
            return DrawingResult::Obsolete;
        m_page->pictureDone(result == DrawingResult::Done ? Page::PictureState::Complete
                                                          : Page::PictureState::Interrupted);
        show();
        return result;
    }

    DrawingResult drawAtOnce(const Size& size)
    {
        HeldBreath breath;
        paintPicture(workAreaPicture(*m_page, size.width, size.height, 0), m_gl, size.width, size.height, breath);
        m_page->pictureDone(Page::PictureState::Complete);
        m_area->getGLContext().swapBuffers();
        return DrawingResult::Done;
    }

    std::shared_ptr<Page> m_page;
    GLDrawAreaInterface* m_area;
    GLFunctions m_gl; ///< its own table, to be disarmed when the context goes away in mid-drawing
    unsigned long m_generation = 0;
    std::optional<GLSnapshot> m_beforeTurn;
    Clock::time_point m_lastShown = Clock::now();
};

} // namespace

void exposePage(const std::shared_ptr<Page>& page) noexcept
{
    try {
        if (page->canShow())
            expose(*page);
    } catch (...) {
        setLastErrorFromException("The page could not be shown");
    }
}

// A page that failed counts as interrupted: drawing it again at every turn would fail as often.
DrawingResult drawPage(const std::shared_ptr<Page>& page) noexcept
{
    try {
        return ScreenWork(page).draw();
    } catch (...) {
        page->pictureDone(Page::PictureState::Interrupted);
        setLastErrorFromException("The page could not be drawn");
        return DrawingResult::Failed;
    }
}

} // namespace velmora::engine
