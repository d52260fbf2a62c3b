#pragma once

#include "interfaces/EngineEnumerations.h"

#include <QImage>
#include <memory>
#include <string>
#include <vector>

namespace velmora::sdk::integration {
class OffscreenImageInterface;
namespace services {
class OffscreenImageService;
}
} // namespace velmora::sdk::integration

namespace velmora::test {

enum class ImageKind {
    PixelBuffer,
    Pixmap,
    Egl,        ///< what the hardware strategy has where the toolkit has nothing
    Software,   ///< OSMesa
    EglSoftware ///< what the software strategy has where there is no OSMesa
};

std::string nameOf(ImageKind kind);
bool isOfEgl(ImageKind kind);
/// The kinds of a process with a display: all, but for OSMesa where that is not installed.
std::vector<ImageKind> everyKind();
/// Those of them that the toolkit can draw into.
std::vector<ImageKind> drawnKinds();
/// Those that need neither display nor toolkit.
std::vector<ImageKind> kindsWithoutDisplay();
/// The strategy that the kind is of.
sdk::integration::ImageRenderingStrategy_e strategyOf(ImageKind kind);

/// An image of the kind, made the way the service makes it; throws when another kind came out.
std::unique_ptr<sdk::integration::OffscreenImageInterface> createImage(ImageKind kind, int width, int height);

/// The image as the engine gets it, row by row from the top; null when a row failed.
QImage readRows(sdk::integration::services::OffscreenImageService& service,
                sdk::integration::OffscreenImageInterface& image);

} // namespace velmora::test
