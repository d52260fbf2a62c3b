#pragma once

#include "integration/toolkit/LargeImage.h"

namespace velmora::sdk::integration::toolkit {

/// The pixels of a framebuffer object of the current context, the top row first; null when they cannot be read. It is
/// bound afterwards. How pixels are stored or changed on their way does not matter and stays.
QImage readFramebuffer(unsigned framebuffer, const QSize& size, bool isMultisampled, LargeImage& into);

/// An integer of the current context.
int currentInteger(unsigned name);

} // namespace velmora::sdk::integration::toolkit
