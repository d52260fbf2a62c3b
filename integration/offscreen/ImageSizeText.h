#pragma once

#include <string>

namespace velmora::sdk::integration::intern {

/// What helps when an image is too large, as the end of a message.
constexpr const char* TrySmaller = ". Try reducing the image size or supersampling to allow exporting to succeed.";

/// "1024x768"
inline std::string sizeText(int width, int height)
{
    return std::to_string(width) + "x" + std::to_string(height);
}

/// Of a size in pixels over the largest.
inline std::string sizeExceedsText(int width, int height, int maxWidth, int maxHeight)
{
    return "The off-screen image size " + sizeText(width, height) + " exceeds the maximum allowed image size of " +
           sizeText(maxWidth, maxHeight) + TrySmaller;
}

inline std::string sizeIsNegativeText(int width, int height)
{
    return "The off-screen image size " + sizeText(width, height) + " is negative.";
}

} // namespace velmora::sdk::integration::intern
