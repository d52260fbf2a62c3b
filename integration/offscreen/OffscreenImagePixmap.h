#pragma once

#include "integration/offscreen/ExportableImageInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <memory>

namespace velmora::sdk::integration::intern {

/// The hardware image where there are no pixel buffers: a hidden GL widget that the toolkit renders
/// into a pixmap. It has an OpenGL context only during render(). GUI thread only.
class OffscreenImagePixmap : public virtual OffscreenImageInterface, public virtual ExportableImageInterface {
public:
    /// Size in pixels. Never fails; a size that cannot be rendered makes render() fail.
    OffscreenImagePixmap(int width, int height);
    ~OffscreenImagePixmap() override;
    OffscreenImagePixmap(const OffscreenImagePixmap&) = delete;
    OffscreenImagePixmap& operator=(const OffscreenImagePixmap&) = delete;

    /// True when there is a picture. What the engine answered to being asked to draw does not
    /// matter; an exception that the drawing throws passes through and leaves the picture as it was.
    bool render(ExportRegion_e region) override;
    /// A context whose operations do nothing: the toolkit has made the widget's own current.
    GLContextInterface& getGLContext() override;
    /// The requested size.
    int width() const override;
    int height() const override;
    QImage toImage() override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace velmora::sdk::integration::intern
