#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class GLContextInterface;

/// An off-screen surface that the engine draws into when it exports an image. GUI thread only.
class VELMORA_INTERFACE OffscreenImageInterface {
public:
    /// Lets the engine draw the region into the image; false when that failed.
    virtual bool render(ExportRegion_e region) = 0;
    /// What the engine draws through; it lives as long as the image.
    virtual GLContextInterface& getGLContext() = 0;
    /// @{
    /// Size in pixels.
    virtual int width() const = 0;
    virtual int height() const = 0;
    /// @}
    virtual ~OffscreenImageInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
