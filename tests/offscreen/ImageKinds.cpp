#include "tests/offscreen/ImageKinds.h"

#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/offscreen/OffscreenImageMesa.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/offscreen/OffscreenImagePixmap.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"

#include <stdexcept>
#include <vector>

namespace velmora::test {

using namespace sdk::integration;

namespace {

bool yes()
{
    return true;
}

bool no()
{
    return false;
}

bool isKind(ImageKind kind, const OffscreenImageInterface& image)
{
    switch (kind) {
    case ImageKind::PixelBuffer:
        return dynamic_cast<const intern::OffscreenImagePBuffer*>(&image);
    case ImageKind::Pixmap:
        return dynamic_cast<const intern::OffscreenImagePixmap*>(&image);
    case ImageKind::Software:
        return dynamic_cast<const intern::OffscreenImageMesa*>(&image);
    }
    return false;
}

} // namespace

std::string nameOf(ImageKind kind)
{
    return kind == ImageKind::PixelBuffer ? "PixelBuffer" : kind == ImageKind::Pixmap ? "Pixmap" : "Software";
}

std::unique_ptr<OffscreenImageInterface> createImage(ImageKind kind, int width, int height)
{
    const auto strategy =
        kind == ImageKind::Software ? ImageRenderingStrategy_Software : ImageRenderingStrategy_Hardware;
    const intern::ImageSurroundings withoutPixelBuffers{no, yes};
    auto image = intern::chooseOffscreenImage(
        width, height, strategy, kind == ImageKind::Pixmap ? withoutPixelBuffers : intern::toolkitSurroundings());
    if (!isKind(kind, *image))
        throw std::logic_error("not an image of kind " + nameOf(kind));
    return image;
}

QImage readRows(services::OffscreenImageService& service, OffscreenImageInterface& image)
{
    QImage result(image.width(), image.height(), QImage::Format_RGB32);
    const auto width = static_cast<std::size_t>(image.width());
    std::vector<unsigned char> red(width), green(width), blue(width);
    for (int y = 0; y < image.height(); ++y) {
        if (!service.imageGetRGBRow(&image, y, red.data(), green.data(), blue.data()))
            return QImage();
        for (std::size_t x = 0; x < width; ++x)
            result.setPixel(static_cast<int>(x), y, qRgb(red[x], green[x], blue[x]));
    }
    return result;
}

} // namespace velmora::test
