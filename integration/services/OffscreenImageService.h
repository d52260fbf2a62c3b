#pragma once

#include "integration/Export.h"
#include "integrationmanager/OffscreenImageServiceAbstract.h"

#include <QImage>

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Gives the engine images to export into, and reads them back for it as colour planes. GUI thread
/// only, from within the engine's own work.
class VELMORA_INTEGRATION_EXPORT OffscreenImageService : public OffscreenImageServiceAbstract {
public:
    OffscreenImageService();
    ~OffscreenImageService() override;

    /// A new image of the given size in pixels; the caller owns it until `imageDestroy`. Strategy 1
    /// means hardware, every other value software. Throws velmora::ExceptionBase when there is none
    /// to be had.
    OffscreenImageInterface* imageCreate(int width, int height, ImageRenderingStrategy_e strategy) override;
    /// Row `row` (0 at the top, not checked) as three planes of the image's width each. The first
    /// row reads the whole image back and the others come from there, until `imageDestroy`: an image
    /// must be drawn completely before it is read, and destroyed before another one is. False when
    /// the image could not be read.
    bool imageGetRGBRow(OffscreenImageInterface* image, int row, unsigned char* red, unsigned char* green,
                        unsigned char* blue) override;
    /// Destroys an image; null is allowed. A pixel buffer leaves no OpenGL context current, whosever
    /// it was.
    void imageDestroy(OffscreenImageInterface* image) override;

private:
    QImage m_cachedImage;
    bool m_imageCached = false;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
