#pragma once

#include "integration/offscreen/ExportableImageInterface.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <memory>

namespace velmora::sdk::integration::toolkit {
class PixelBuffer;
}

namespace velmora::sdk::integration::intern {

/// The preferred hardware image: a pixel buffer in the format that "ImageRendering" of the OpenGL
/// configuration asks for, or in the plain format where the driver cannot give that. GUI thread
/// only.
class OffscreenImagePBuffer : public virtual OffscreenImageInterface, public virtual ExportableImageInterface {
public:
    /// Size in pixels. Does not throw when there is no buffer to be had: see isValid().
    OffscreenImagePBuffer(int width, int height);
    /// Leaves no OpenGL context current, whosever it was; deliberate.
    ~OffscreenImagePBuffer() override;
    OffscreenImagePBuffer(const OffscreenImagePBuffer&) = delete;
    OffscreenImagePBuffer& operator=(const OffscreenImagePBuffer&) = delete;

    /// Whether there is a buffer. An image without one can only be destroyed.
    bool isValid() const { return m_pbuffer != nullptr; }

    bool render(ExportRegion_e region) override;
    GLContextInterface& getGLContext() override { return m_glContext; }
    int width() const override;
    int height() const override;
    QImage toImage() override;

private:
    class GLContext : public GLContextInterface {
    public:
        explicit GLContext(OffscreenImagePBuffer& image) : m_image(image) {}
        void swapBuffers() override {}
        bool setCurrentGL() override;
        bool clearCurrentGL() override { return true; }

    private:
        OffscreenImagePBuffer& m_image;
    };

    std::unique_ptr<toolkit::PixelBuffer> m_pbuffer;
    GLContext m_glContext;
};

} // namespace velmora::sdk::integration::intern
