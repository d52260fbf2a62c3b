#pragma once

#include "integration/offscreen/ExportableImageInterface.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <cstdint>
#include <memory>

struct osmesa_context;

namespace velmora::sdk::integration::intern {

/// The software image: OSMesa draws into memory that the image owns. Needs neither a display nor an
/// application object. GUI thread only.
class OffscreenImageMesa : public virtual OffscreenImageInterface, public virtual ExportableImageInterface {
public:
    /// Size in pixels. Throws velmora::ExceptionBase for a size over OSMesa's maximum and for a
    /// negative one. A context that OSMesa refuses shows as a failing setCurrentGL().
    OffscreenImageMesa(int width, int height);
    /// A toolkit context that is current stays current.
    ~OffscreenImageMesa() override;
    OffscreenImageMesa(const OffscreenImageMesa&) = delete;
    OffscreenImageMesa& operator=(const OffscreenImageMesa&) = delete;

    bool render(ExportRegion_e region) override;
    /// Its setCurrentGL() releases the toolkit's current context: whoever draws with the toolkit
    /// afterwards makes a context of its own current again, as it must anyway.
    GLContextInterface& getGLContext() override { return m_glContext; }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    /// Opaque, whatever the alpha that was drawn.
    QImage toImage() override;

private:
    class GLContext : public GLContextInterface {
    public:
        explicit GLContext(OffscreenImageMesa& image) : m_image(image) {}
        void swapBuffers() override {}
        bool setCurrentGL() override;
        bool clearCurrentGL() override { return true; }

    private:
        OffscreenImageMesa& m_image;
    };

    int m_width;
    int m_height;
    /// Bytes R, G, B, A a pixel; row 0 is the bottom row.
    std::unique_ptr<std::uint32_t[]> m_buffer;
    osmesa_context* m_context = nullptr;
    GLContext m_glContext;
};

} // namespace velmora::sdk::integration::intern
