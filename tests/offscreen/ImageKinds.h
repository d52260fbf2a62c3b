#pragma once

#include "tests/offscreen/GLTable.h"

#include <QImage>
#include <functional>
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
const GLTable& glOf(ImageKind kind);

/// An image of the kind, made the way the service makes it; throws when another kind came out.
std::unique_ptr<sdk::integration::OffscreenImageInterface> createImage(ImageKind kind, int width, int height);

/// Makes the image's context current and draws into it while the image renders; the result of
/// render().
bool renderImage(ImageKind kind, sdk::integration::OffscreenImageInterface& image,
                 const std::function<void(const GLTable&, int width, int height)>& draw);

/// The image as the engine gets it, row by row from the top; null when a row failed.
QImage readRows(sdk::integration::services::OffscreenImageService& service,
                sdk::integration::OffscreenImageInterface& image);

} // namespace velmora::test
