#pragma once

#include <QImage>

namespace velmora::sdk::integration::toolkit {

/// A new image whose pixels are about to be written for the first time, all of them. The system
/// hands new memory out page by page, which for an exported image costs several times what writing
/// it does; this asks for large pages. Null like any image for an empty size or without memory.
QImage newLargeImage(int width, int height, QImage::Format format);

} // namespace velmora::sdk::integration::toolkit
