#include "integration/services/OffscreenImageService.h"

#include "integration/offscreen/ExportableImageInterface.h"
#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/offscreen/PixelRows.h"
#include "interfaces/OffscreenImageInterface.h"

namespace velmora::sdk::integration::services {

namespace {

/// The image with its pixels as 0xAARRGGBB. On a screen of fewer colours a pixmap turns into an
/// image of fewer bits a pixel.
QImage withFullPixels(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_Invalid:
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return image;
    default:
        return image.convertToFormat(QImage::Format_RGB32);
    }
}

QImage readBack(OffscreenImageInterface* image)
{
    auto* const exportable = dynamic_cast<intern::ExportableImageInterface*>(image);
    return exportable ? withFullPixels(exportable->toImage()) : QImage();
}

} // namespace

OffscreenImageService::OffscreenImageService() = default;

OffscreenImageService::~OffscreenImageService() = default;

OffscreenImageInterface* OffscreenImageService::imageCreate(int width, int height, ImageRenderingStrategy_e strategy)
{
    return intern::chooseOffscreenImage(width, height, strategy, intern::toolkitSurroundings()).release();
}

bool OffscreenImageService::imageGetRGBRow(OffscreenImageInterface* image, int row, unsigned char* red,
                                           unsigned char* green, unsigned char* blue)
{
    // The flag is all that ties the cached pixels to an image. Deliberate: one image at a time.
    if (!m_imageCached) {
        QImage pixels = readBack(image);
        m_cachedImage.swap(pixels);
        // Null also without any width or height: below, there is a row to copy.
        m_imageCached = !m_cachedImage.isNull();
        if (!m_imageCached)
            return false;
    }
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(m_cachedImage.constScanLine(row));
    intern::pixelRows().intoPlanes(pixels, m_cachedImage.width(), red, green, blue);
    return true;
}

void OffscreenImageService::imageDestroy(OffscreenImageInterface* image)
{
    m_imageCached = false;
    m_cachedImage = QImage(); // its memory is that of the image's next picture
    delete image;
}

} // namespace velmora::sdk::integration::services
