#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class OffscreenImageInterface;

namespace services {

/// Gives the engine off-screen images. One image at a time: destroy one before reading another.
/// GUI thread only.
class VELMORA_INTERFACE OffscreenImageServiceInterface {
public:
    /// A new image of the given size in pixels; the caller owns it until `imageDestroy`. Throws
    /// velmora::ExceptionBase when there is none to be had.
    virtual OffscreenImageInterface* imageCreate(int width, int height, ImageRenderingStrategy_e strategy) = 0;
    /// Row `row` (0 at the top) as three planes of `width` bytes each. False when the image could
    /// not be read.
    virtual bool imageGetRGBRow(OffscreenImageInterface* image, int row, unsigned char* red, unsigned char* green,
                                unsigned char* blue) = 0;
    /// Destroys an image; null is allowed.
    virtual void imageDestroy(OffscreenImageInterface* image) = 0;
    virtual ~OffscreenImageServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
