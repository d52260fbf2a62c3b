#include "integration/offscreen/OffscreenImagePixmap.h"

#include "engine/VelEng.h"
#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/HiddenDrawing.h"
#include "interfaces/GLContextInterface.h"

#include <exception>

namespace velmora::sdk::integration::intern {

namespace {

class NoOpGLContext : public GLContextInterface {
public:
    void swapBuffers() override {}
    bool setCurrentGL() override { return true; }
    bool clearCurrentGL() override { return true; }
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
        std::exception_ptr failure;
        rendered = toolkit::drawHidden(QSize(width(), height()), [&] {
            try {
                VelEngRenderOffscreenImage(region, this);
            } catch (...) {
                failure = std::current_exception();
            }
        });
        if (failure)
            std::rethrow_exception(failure);
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
