#include "integration/offscreen/OffscreenImageChoice.h"

#include "exception/ExceptionBase.h"
#include "integration/offscreen/OffscreenImageMesa.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/offscreen/OffscreenImagePixmap.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/PixelBuffer.h"

namespace velmora::sdk::integration::intern {

namespace {

std::unique_ptr<OffscreenImageInterface> hardwareImage(int width, int height, const ImageSurroundings& surroundings)
{
    if (surroundings.hasPixelBuffers()) {
        auto image = std::make_unique<OffscreenImagePBuffer>(width, height);
        if (image->isValid())
            return image;
    }
    if (surroundings.isGuiClient())
        return std::make_unique<OffscreenImagePixmap>(width, height);
    throw ExceptionBase("Failed to create an offscreen image.", false);
}

} // namespace

ImageSurroundings toolkitSurroundings()
{
    return {toolkit::hasPixelBuffers, toolkit::isGuiClient};
}

std::unique_ptr<OffscreenImageInterface> chooseOffscreenImage(int width, int height, ImageRenderingStrategy_e strategy,
                                                              const ImageSurroundings& surroundings)
{
    if (strategy == 1)
        return hardwareImage(width, height, surroundings);
    return std::make_unique<OffscreenImageMesa>(width, height);
}

} // namespace velmora::sdk::integration::intern
