#pragma once

#include "tests/platform/page/SoftwareSurface.h"

#include <string>
#include <vector>

namespace velmora::test {

/// A PNG file as libpng reads it, without any conversion.
struct PngPicture {
    int width = 0;
    int height = 0;
    int bitDepth = 0;
    bool isRgb = false;
    bool hasAlpha = false;
    unsigned dotsPerMetre = 0;
    std::vector<unsigned char> bytes; ///< RGB, or RGB and alpha, from the top
    std::string problem;              ///< empty for a file without an error and without a warning

    Pixel at(int x, int yFromTop) const;
    int alphaAt(int x, int yFromTop) const; ///< of a picture with alpha
    /// A picture with alpha on a ground of one grey.
    Pixel onGround(int x, int yFromTop, int grey) const;
    int countOther(const Pixel& colour) const;
};

PngPicture readPng(const std::string& fileName);

} // namespace velmora::test
