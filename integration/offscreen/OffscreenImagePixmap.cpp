#include "integration/offscreen/OffscreenImagePixmap.h"

#include "engine/VelEng.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "interfaces/GLContextInterface.h"

#include <QGLWidget>
#include <exception>

namespace velmora::sdk::integration::intern {

namespace {

class NoOpGLContext : public GLContextInterface {
public:
    void swapBuffers() override {}
    bool setCurrentGL() override { return true; }
    bool clearCurrentGL() override { return true; }
};

/// The toolkit's own preparations leave errors behind; the engine is to see only its own. Bounded,
/// because a lost context reports an error for ever.
void forgetPendingGLErrors()
{
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i)
        continue;
}

class OffscreenGLWidget : public QGLWidget {
public:
    OffscreenGLWidget(ExportRegion_e region, OffscreenImageInterface& image) : m_region(region), m_image(image) {}

    /// What the drawing threw, once it is safe to let it go on.
    void rethrowFailure() const
    {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

protected:
    void paintGL() override
    {
        forgetPendingGLErrors();
        // The application may paint while the engine draws; the toolkit goes on with this context.
        const toolkit::CurrentContextKeeper keeper;
        // The toolkit does not expect exceptions where it calls this.
        try {
            VelEngRenderOffscreenImage(m_region, &m_image);
        } catch (...) {
            m_failure = std::current_exception();
        }
    }

private:
    ExportRegion_e m_region;
    OffscreenImageInterface& m_image;
    std::exception_ptr m_failure;
};

} // namespace

struct OffscreenImagePixmap::Impl {
    int width;
    int height;
    NoOpGLContext glContext;
    QImage image;
};

OffscreenImagePixmap::OffscreenImagePixmap(int width, int height) : m_impl(new Impl{width, height, {}, {}}) {}

OffscreenImagePixmap::~OffscreenImagePixmap() = default;

bool OffscreenImagePixmap::render(ExportRegion_e region)
{
    QImage rendered;
    // For an empty size the toolkit would take the widget's own, and the rows would overrun the
    // engine's arrays.
    if (toolkit::canDrawOffscreen(QSize(width(), height()))) {
        OffscreenGLWidget widget(region, *this);
        rendered = widget.renderPixmap(width(), height(), false).toImage();
        widget.rethrowFailure();
    }
    m_impl->image.swap(rendered);
    return !m_impl->image.isNull();
}

GLContextInterface& OffscreenImagePixmap::getGLContext()
{
    return m_impl->glContext;
}

int OffscreenImagePixmap::width() const
{
    return m_impl->width;
}

int OffscreenImagePixmap::height() const
{
    return m_impl->height;
}

QImage OffscreenImagePixmap::toImage()
{
    return m_impl->image;
}

} // namespace velmora::sdk::integration::intern
