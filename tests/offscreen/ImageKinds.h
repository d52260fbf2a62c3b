#pragma once

#include <QImage>
#include <memory>
#include <string>

namespace velmora::sdk::integration {
class OffscreenImageInterface;
namespace services {
class OffscreenImageService;
}
} // namespace velmora::sdk::integration

namespace velmora::test {

enum class ImageKind { PixelBuffer, Pixmap, Software };

std::string nameOf(ImageKind kind);

/// An image of the kind, made the way the service makes it; throws when another kind came out.
std::unique_ptr<sdk::integration::OffscreenImageInterface> createImage(ImageKind kind, int width, int height);

/// The image as the engine gets it, row by row from the top; null when a row failed.
QImage readRows(sdk::integration::services::OffscreenImageService& service,
                sdk::integration::OffscreenImageInterface& image);

} // namespace velmora::test
