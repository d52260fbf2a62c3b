#pragma once

#include "interfaces/EngineEnumerations.h"

#include <memory>

namespace velmora::sdk::integration {
class OffscreenImageInterface;
}

namespace velmora::sdk::integration::intern {

/// Whether the library is installed; it is loaded then.
bool hasOSMesa();
bool hasEgl();

/// What the choice of an image asks about the process it runs in. No function may be null.
struct ImageSurroundings {
    bool (*hasPixelBuffers)();
    bool (*isGuiClient)();
    bool (*hasOSMesa)() = intern::hasOSMesa;
    bool (*hasEgl)() = intern::hasEgl;
};

/// The answers of the toolkit and of the system.
ImageSurroundings toolkitSurroundings();

/// The image for a strategy, of a size in pixels: strategy 1 takes a pixel buffer, else a hidden widget, else EGL;
/// every other value takes OSMesa, else EGL's software. "PreferEGL" of the settings for images puts EGL first
/// in either. There is deliberately no way from one strategy to the other. Throws velmora::ExceptionBase when
/// there is no image to be had; exceptions of the toolbox pass through.
std::unique_ptr<OffscreenImageInterface> chooseOffscreenImage(int width, int height, ImageRenderingStrategy_e strategy,
                                                              const ImageSurroundings& surroundings);

} // namespace velmora::sdk::integration::intern
