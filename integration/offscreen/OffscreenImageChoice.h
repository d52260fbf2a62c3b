#pragma once

#include "interfaces/EngineEnumerations.h"

#include <memory>

namespace velmora::sdk::integration {
class OffscreenImageInterface;
}

namespace velmora::sdk::integration::intern {

/// What the choice of an image asks about the process it runs in. Neither function may be null.
struct ImageSurroundings {
    bool (*hasPixelBuffers)();
    bool (*isGuiClient)();
};

/// The answers of the toolkit.
ImageSurroundings toolkitSurroundings();

/// The image for a strategy, of a size in pixels: strategy 1 takes a pixel buffer, else a hidden widget; every other
/// value takes software. There is deliberately no way from one to the other. Throws
/// velmora::ExceptionBase when there is no image to be had; exceptions of the toolbox pass through.
std::unique_ptr<OffscreenImageInterface> chooseOffscreenImage(int width, int height, ImageRenderingStrategy_e strategy,
                                                              const ImageSurroundings& surroundings);

} // namespace velmora::sdk::integration::intern
