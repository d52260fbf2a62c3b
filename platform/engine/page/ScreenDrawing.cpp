#include "engine/page/ScreenDrawing.h"

#include "engine/core/Busy.h"
#include "engine/core/Checkpoint.h"
#include "engine/core/LastError.h"
#include "engine/core/SlicedWork.h"
#include "engine/gl/GLFunctions.h"
#include "engine/page/GLSnapshot.h"
#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "engine/page/WindowSystemContext.h"
#include "exception/ExceptionBase.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <chrono>
#include <memory>
#include <optional>

namespace velmora::engine {
namespace {

using Clock = std::chrono::steady_clock;
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

GLFunctions makeCurrent(GLDrawAreaInterface& area)
{
    if (!area.getGLContext().setCurrentGL())
        throw ExceptionBase(
            "The drawing area's OpenGL context cannot be made current. Close the area and open it again.");
    const GLFunctions gl = currentGL();
    clearPendingErrors(gl);
    return gl;
}

void showCanvas(Page& page, const GLFunctions& gl, const Size& size)
{
    page.canvas().show(gl);
    if (page.mark())
        paintMark(*page.mark(), gl, size.width, size.height, screenPixelsPerPoint());
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
    NoCheckpoint checkpoint;
    paintPicture(picture, gl, size.width, size.height, checkpoint);
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
            showCanvas(page, gl, size);
        // While the area's own framebuffer is bound: swapping takes what was drawn into that.
        area.getGLContext().swapBuffers();
    }
    if (page.pictureState() == Page::PictureState::Waiting)
        requestTurn();
}

/// Tells for its own life that a drawing without a BusyScope has given the application its turn.
class FreeTurn {
public:
    FreeTurn() : m_outer(g_since)
    {
        g_since = Clock::now();
        ++g_depth;
    }
    ~FreeTurn()
    {
        --g_depth;
        g_since = m_outer;
    }
    FreeTurn(const FreeTurn&) = delete;
    FreeTurn& operator=(const FreeTurn&) = delete;

    /// The turn within all others; none without one.
    static std::optional<Clock::time_point> since() { return g_since; }
    /// How many drawings wait for the application, each begun within the one before.
    static int depth() { return g_depth; }

private:
    static inline std::optional<Clock::time_point> g_since;
    static inline int g_depth = 0;
    std::optional<Clock::time_point> m_outer;
};

/// One drawing of the full picture of a page, from the first slice to the last.
class ScreenWork final : public SlicedWork {
public:
    explicit ScreenWork(std::shared_ptr<Page> page)
        : SlicedWork("Drawing"), m_page(std::move(page)), m_area(m_page->area()), m_gl(makeCurrent(*m_area)),
          m_drawing(m_page->beginDrawing())
    {}

    DrawingResult draw()
    {
        const GLStateScope keep(m_gl);
        const Size size = sizeOf(*m_area);
        m_page->canvas().prepare(m_gl, size.width, size.height);
        m_generation = m_page->generation();
        if (m_page->canvas().isDirect())
            return drawAtOnce(size);
        bool finished = false;
        try {
            // What has come since the coarse picture was begun may have made this one obsolete already.
            finished = giveTurn() && paint(size);
        } catch (...) {
            setLastErrorFromException("The page could not be drawn");
            return isObsolete() ? DrawingResult::Obsolete : DrawingResult::Failed;
        }
        // What happened to the page during the drawing counts more than how the drawing ended.
        if (isObsolete())
            return DrawingResult::Obsolete;
        return finished ? DrawingResult::Done : DrawingResult::Stopped;
    }

protected:
    void completeSlice() override { m_gl.Finish(); }

    void beforeTurn() override
    {
        m_beforeTurn.emplace(m_gl);
        if (!isBusy())
            m_turn = std::make_unique<FreeTurn>();
    }

    bool afterTurn() override
    {
        m_turn.reset();
        if (m_page->area() != m_area || !m_area->isValidWidget() || !m_area->getGLContext().setCurrentGL()) {
            disarm(m_gl);
            m_noContext.emplace(); // foreign contents unwind too
            return false;
        }
        m_beforeTurn->restore(m_gl);
        return !isObsolete();
    }

private:
    bool isObsolete() const
    {
        return m_page->area() != m_area || m_page->generation() != m_generation || !m_page->isCurrentDrawing(m_drawing);
    }

    bool paint(const Size& size)
    {
        m_page->canvas().beginFull(m_gl);
        Picture picture = workAreaPicture(*m_page, size.width, size.height, 0);
        picture.context = m_page->contextNumber();
        return paintPicture(picture, m_gl, size.width, size.height, *this);
    }

    DrawingResult drawAtOnce(const Size& size)
    {
        NoCheckpoint checkpoint;
        paintPicture(workAreaPicture(*m_page, size.width, size.height, 0), m_gl, size.width, size.height, checkpoint);
        m_page->pictureDone(Page::PictureState::Complete);
        m_area->getGLContext().swapBuffers();
        return DrawingResult::Done;
    }

    std::shared_ptr<Page> m_page;
    GLDrawAreaInterface* m_area;
    GLFunctions m_gl; ///< its own table, to be disarmed when the context goes away in mid-drawing
    unsigned long m_drawing;
    unsigned long m_generation = 0;
    std::optional<GLSnapshot> m_beforeTurn;
    std::unique_ptr<FreeTurn> m_turn;
    std::optional<NoWindowSystemContext> m_noContext; ///< once the area's has gone away
};

/// Draws into what the screen shows, and shows it.
void showCoarse(Page& page)
{
    GLDrawAreaInterface& area = *page.area();
    const GLFunctions gl = makeCurrent(area);
    const GLStateScope keep(gl);
    const Size size = sizeOf(area);
    page.dismissObsoleteContents();
    page.canvas().prepare(gl, size.width, size.height);
    if (page.canvas().isDirect())
        return;
    page.canvas().beginCoarse(gl);
    Picture picture = workAreaPicture(page, size.width, size.height, 0);
    picture.detail = Detail::Coarse;
    picture.context = page.contextNumber();
    NoCheckpoint checkpoint;
    paintPicture(picture, gl, size.width, size.height, checkpoint);
    showCanvas(page, gl, size);
    area.getGLContext().swapBuffers();
    page.pictureShown();
}

void showFull(Page& page)
{
    GLDrawAreaInterface& area = *page.area();
    const GLFunctions gl = makeCurrent(area);
    const GLStateScope keep(gl);
    page.canvas().completeFull(gl);
    showCanvas(page, gl, sizeOf(area));
    area.getGLContext().swapBuffers();
    page.pictureShown();
}

// A page that failed counts as interrupted: drawing it again at every turn would fail as often.
DrawingResult failed(Page& page)
{
    setLastErrorFromException("The page could not be drawn");
    page.pictureDone(Page::PictureState::Interrupted);
    return DrawingResult::Failed;
}

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

void showMark(const std::shared_ptr<Page>& page) noexcept
{
    if (!page->canvas().isDirect())
        exposePage(page);
}

DrawingResult showCoarsePicture(const std::shared_ptr<Page>& page) noexcept
{
    try {
        if (!page->isShown())
            showCoarse(*page);
        return DrawingResult::Done;
    } catch (...) {
        return failed(*page);
    }
}

DrawingResult drawFullPicture(const std::shared_ptr<Page>& page) noexcept
{
    try {
        return ScreenWork(page).draw();
    } catch (...) {
        return failed(*page);
    }
}

DrawingResult settlePicture(const std::shared_ptr<Page>& page, DrawingResult result) noexcept
{
    try {
        if (result == DrawingResult::Obsolete || page->pictureState() != Page::PictureState::Waiting)
            return result;
        page->pictureDone(result == DrawingResult::Done ? Page::PictureState::Complete
                                                        : Page::PictureState::Interrupted);
        if (result == DrawingResult::Done)
            showFull(*page);
        return result;
    } catch (...) {
        return failed(*page);
    }
}

bool isDrawingAboutToGoOn()
{
    constexpr std::chrono::milliseconds Soon{100};
    // More than dialogs upon dialogs: handlers that take long in every turn, within which no drawing would ever end.
    constexpr int MostWaiting = 4;
    return FreeTurn::since() && (Clock::now() - *FreeTurn::since() < Soon || FreeTurn::depth() >= MostWaiting);
}

} // namespace velmora::engine
