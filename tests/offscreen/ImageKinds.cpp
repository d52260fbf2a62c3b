#include "tests/offscreen/ImageKinds.h"

#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/offscreen/OffscreenImageEgl.h"
#include "integration/offscreen/OffscreenImageMesa.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/offscreen/OffscreenImagePixmap.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ToolkitLimits.h"

#include <algorithm>
#include <stdexcept>

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
    case ImageKind::Egl:
    case ImageKind::EglSoftware:
        return dynamic_cast<const intern::OffscreenImageEgl*>(&image);
    }
    return false;
}

intern::ImageSurroundings surroundingsFor(ImageKind kind)
{
    switch (kind) {
    case ImageKind::Pixmap:
        return {no, yes};
    case ImageKind::Egl:
        return {no, no};
    case ImageKind::EglSoftware:
        return {no, no, no};
    default:
        return intern::toolkitSurroundings();
    }
}

} // namespace

std::string nameOf(ImageKind kind)
{
    const char* const names[] = {"PixelBuffer", "Pixmap", "Egl", "Software", "EglSoftware"};
    return names[static_cast<int>(kind)];
}

bool isOfEgl(ImageKind kind)
{
    return kind == ImageKind::Egl || kind == ImageKind::EglSoftware;
}

std::vector<ImageKind> everyKind()
{
    std::vector<ImageKind> kinds = kindsWithoutDisplay();
    kinds.insert(kinds.begin(), {ImageKind::PixelBuffer, ImageKind::Pixmap});
    return kinds;
}

std::vector<ImageKind> drawnKinds()
{
    std::vector<ImageKind> kinds = everyKind();
    if (whyNoPixmapsAreDrawn())
        kinds.erase(std::remove(kinds.begin(), kinds.end(), ImageKind::Pixmap), kinds.end());
    return kinds;
}

std::vector<ImageKind> kindsWithoutDisplay()
{
    if (intern::hasOSMesa())
        return {ImageKind::Egl, ImageKind::Software, ImageKind::EglSoftware};
    return {ImageKind::Egl, ImageKind::EglSoftware};
}

ImageRenderingStrategy_e strategyOf(ImageKind kind)
{
    const bool software = kind == ImageKind::Software || kind == ImageKind::EglSoftware;
    return software ? ImageRenderingStrategy_Software : ImageRenderingStrategy_Hardware;
}

std::unique_ptr<OffscreenImageInterface> createImage(ImageKind kind, int width, int height)
{
    auto image = intern::chooseOffscreenImage(width, height, strategyOf(kind), surroundingsFor(kind));
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
