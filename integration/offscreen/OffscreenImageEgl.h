#pragma once

#include "integration/offscreen/ExportableImageInterface.h"
#include "integration/opengl/ImageFramebuffer.h"
#include "integration/opengl/SurfacelessContext.h"
#include "integration/toolkit/LargeImage.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <memory>

namespace velmora::sdk::integration::intern {

/// The image that needs neither a display nor a toolkit: an EGL context without a surface draws into a
/// framebuffer object, on the graphics processor or, also on purpose, by software. GUI thread only.
///
/// The framebuffer that is bound after setCurrentGL() is the image; the number 0 is no framebuffer here.
class OffscreenImageEgl : public virtual OffscreenImageInterface, public virtual ExportableImageInterface {
public:
    /// Size in pixels. Does not throw when there is no context or framebuffer to be had: see isValid(). By
    /// software, a size over the renderer's maximum and a negative one throw velmora::ExceptionBase, as they
    /// do for OSMesa, in whose place that stands. The context that is current stays current.
    OffscreenImageEgl(int width, int height, EglRenderer renderer);
    /// The context that is current stays current, if it is not the image's.
    ~OffscreenImageEgl() override;
    OffscreenImageEgl(const OffscreenImageEgl&) = delete;
    OffscreenImageEgl& operator=(const OffscreenImageEgl&) = delete;

    /// Whether there is something to draw into. An image without can only be destroyed.
    bool isValid() const { return m_framebuffer.name != 0; }

    /// Leaves no context current: the toolkit could make none of its own current over the image's.
    bool render(ExportRegion_e region) override;
    /// Its setCurrentGL() releases whatever context is current, the toolkit's or the host's. Its clearCurrentGL()
    /// leaves none current, as code that draws with another context meanwhile needs.
    GLContextInterface& getGLContext() override { return m_glContext; }
    int width() const override { return m_framebuffer.width; }
    int height() const override { return m_framebuffer.height; }
    /// Opaque, whatever the alpha that was drawn. Null when it cannot be read.
    QImage toImage() override;

private:
    class GLContext : public GLContextInterface {
    public:
        explicit GLContext(OffscreenImageEgl& image) : m_image(image) {}
        void swapBuffers() override {}
        bool setCurrentGL() override;
        bool clearCurrentGL() override;

    private:
        OffscreenImageEgl& m_image;
    };

    std::unique_ptr<SurfacelessContext> m_context;
    ImageFramebuffer m_framebuffer;
    GLContext m_glContext;
    toolkit::LargeImage m_picture;
};

} // namespace velmora::sdk::integration::intern
