#pragma once

#include "interfaces/OffscreenImageInterface.h"
#include "tests/platform/page/SoftwareSurface.h"
#include "tests/support/SilentArea.h"

namespace velmora::test {

/// A drawing area without a window. The engine's own calls paint it; nothing exposes it by itself.
class FakeArea : public SilentArea {
public:
    FakeArea(int width, int height) : surface(width, height) {}
    /// Detaches itself, as a window does when it goes away.
    ~FakeArea() override;
    FakeArea(const FakeArea&) = delete;
    FakeArea& operator=(const FakeArea&) = delete;

    void detach();

    bool isVisible() const override { return visible; }
    void getSize(int* width, int* height) const override
    {
        *width = surface.width();
        *height = surface.height();
    }
    sdk::integration::GLContextInterface& getGLContext() override { return surface; }
    bool isValidWidget() const override { return valid; }

    SoftwareSurface surface;
    bool visible = true;
    bool valid = true;
    int page = 0; ///< the page it was given, or 0
};

/// An off-screen image without a service.
class FakeImage : public sdk::integration::OffscreenImageInterface {
public:
    FakeImage(int width, int height) : surface(width, height) {}

    bool render(sdk::integration::ExportRegion_e region) override;
    sdk::integration::GLContextInterface& getGLContext() override { return surface; }
    int width() const override { return surface.width(); }
    int height() const override { return surface.height(); }

    SoftwareSurface surface;
};

} // namespace velmora::test
