#pragma once

#include "integration/offscreen/ExportableImageInterface.h"
#include "integration/offscreen/PixelMemory.h"
#include "integration/opengl/OSMesaLibrary.h"
#include "integration/toolkit/LargeImage.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <optional>

namespace velmora::sdk::integration::intern {

/// The software image: OSMesa draws into memory that the image owns. Needs neither a display nor an
/// application object, but OSMesa: see osMesa(). GUI thread only.
class OffscreenImageMesa : public virtual OffscreenImageInterface, public virtual ExportableImageInterface {
public:
    /// Size in pixels. Throws velmora::ExceptionBase for a size over OSMesa's maximum, for a negative
    /// one and without memory. A context that OSMesa refuses shows as a failing setCurrentGL().
    OffscreenImageMesa(const OSMesaLibrary& library, int width, int height);
    /// The toolkit's or the host's context that is current stays current.
    ~OffscreenImageMesa() override;
    OffscreenImageMesa(const OffscreenImageMesa&) = delete;
    OffscreenImageMesa& operator=(const OffscreenImageMesa&) = delete;

    bool render(ExportRegion_e region) override;
    /// Its setCurrentGL() releases whatever context is current, the toolkit's or the host's: code that draws
    /// afterwards makes a context of its own current again, as it must anyway.
    GLContextInterface& getGLContext() override { return m_glContext; }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    /// Opaque, whatever the alpha that was drawn. Null when the last drawing could not be finished.
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

    bool finishDrawing();

    const OSMesaLibrary& m_library;
    int m_width;
    int m_height;
    std::optional<PixelMemory> m_buffer; ///< bytes R, G, B, A a pixel; row 0 is the bottom row
    OSMesaLibrary::Context m_context = nullptr;
    GLContext m_glContext;
    toolkit::LargeImage m_picture;
    bool m_wasCurrent = false; ///< in this drawing
    bool m_unfinished = false;
};

} // namespace velmora::sdk::integration::intern
