#pragma once

#include "engine/VelUtil.h"

#include <string>

namespace velmora::engine {

using TakeRow = int (*)(int row, int width, int height, const unsigned char* rgb, long clientData);

/// @{
/// The work behind the entry points of that name: false when it was interrupted, or with the reason in the last error.
bool exportImage(const std::string& fileName, const VelExportImageOptions* options) noexcept;
bool renderPage(double dotsPerInch, int strategy, TakeRow take, long clientData) noexcept;
/// @}

} // namespace velmora::engine
