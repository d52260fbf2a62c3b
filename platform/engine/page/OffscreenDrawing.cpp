#include "engine/page/OffscreenDrawing.h"

#include "engine/core/Busy.h"
#include "engine/core/LastError.h"
#include "engine/core/SlicedWork.h"
#include "engine/gl/GLFunctions.h"
#include "engine/page/ExportRequest.h"
#include "engine/page/GLSnapshot.h"
#include "engine/page/Pages.h"
#include "engine/page/RegionDrawing.h"
#include "engine/page/WindowSystemContext.h"
#include "exception/ExceptionBase.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <optional>
#include <utility>

namespace velmora::engine {
namespace {

using velmora::sdk::integration::ExportRegion_e;
using velmora::sdk::integration::OffscreenImageInterface;

/// One drawing into an image. It draws into whatever framebuffer the image's context has bound:
/// toolkits put a framebuffer object of their own behind an image.
class ImageWork final : public SlicedWork {
public:
    ImageWork(std::shared_ptr<Page> page, OffscreenImageInterface& image)
        : SlicedWork("Drawing an image"), m_page(std::move(page)), m_image(image), m_gl(makeCurrent(image)),
          m_contentVersion(m_page->contentVersion())
    {}

    bool draw(ExportRegion_e region)
    {
        const GLStateScope keep(m_gl);
        const int width = m_image.width();
        const int height = m_image.height();
        const Picture picture = regionPicture(*m_page, region, width, height, currentExportRequest());
        ShareOfExport share(*this, currentExportRequest());
        const bool finished = paintPicture(picture, m_gl, width, height, share);
        m_gl.waitUntilDrawn(); // the image itself hands out what is drawn
        if (!finished)
            setLastError(whyNot());
        return finished;
    }

protected:
    void completeSlice() override { m_gl.waitUntilDrawn(); }
    void beforeTurn() override { m_beforeTurn.emplace(m_gl); }

    bool afterTurn() override
    {
        if (!m_image.getGLContext().setCurrentGL() || !m_context.makeCurrentAgain()) {
            disarm(m_gl);
            m_noContext.emplace(); // foreign contents unwind too
            m_contextLost = true;
            return false;
        }
        m_beforeTurn->restore(m_gl);
        return m_page->contentVersion() == m_contentVersion;
    }

private:
    class ShareOfExport final : public Checkpoint {
    public:
        ShareOfExport(Checkpoint& whole, const ExportRequest& request)
            : m_whole(whole), m_from(request.progressFrom), m_length(request.progressTo - request.progressFrom)
        {}
        bool goOn(double fraction) override { return m_whole.goOn(m_from + m_length * fraction); }

    private:
        Checkpoint& m_whole;
        double m_from;
        double m_length;
    };

    static const GLFunctions& makeCurrent(OffscreenImageInterface& image)
    {
        if (!image.getGLContext().setCurrentGL())
            throw ExceptionBase("its OpenGL context cannot be made current. Try a smaller image");
        clearPendingErrors(currentGL());
        return currentGL();
    }

    const char* whyNot() const
    {
        if (m_contextLost)
            return "The image's OpenGL context was lost while it was drawn. Export the image again.";
        if (wasStopped())
            return "Drawing the image was interrupted.";
        return "The view was changed while the image was drawn. Export the image again.";
    }

    std::shared_ptr<Page> m_page;
    OffscreenImageInterface& m_image;
    GLFunctions m_gl; ///< its own table, to be disarmed when the context is lost in mid-drawing
    WindowSystemContext m_context;
    unsigned long m_contentVersion;
    std::optional<GLSnapshot> m_beforeTurn;
    bool m_contextLost = false;
    std::optional<NoWindowSystemContext> m_noContext; ///< once the image's is lost
};

} // namespace

bool drawImage(ExportRegion_e region, OffscreenImageInterface& image) noexcept
{
    const BusyScope busy;
    try {
        noteImageDrawing(ImageDrawing::NotBegun);
        ImageWork work(pages().active(), image);
        noteImageDrawing(ImageDrawing::Failed);
        const bool finished = work.draw(region);
        if (finished)
            noteImageDrawing(ImageDrawing::Done);
        else if (work.wasStopped())
            noteImageDrawing(ImageDrawing::Interrupted);
        return finished;
    } catch (...) {
        setLastErrorFromException("The image could not be drawn");
        return false;
    }
}

} // namespace velmora::engine
