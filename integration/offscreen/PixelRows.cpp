#include "integration/offscreen/PixelRows.h"

namespace velmora::sdk::integration::intern {

namespace {

void intoPlanes(const std::uint32_t* pixels, int count, unsigned char* red, unsigned char* green, unsigned char* blue)
{
    for (int x = 0; x < count; ++x) {
        red[x] = static_cast<unsigned char>(pixels[x] >> 16);
        green[x] = static_cast<unsigned char>(pixels[x] >> 8);
        blue[x] = static_cast<unsigned char>(pixels[x]);
    }
}

void fromRgbaBytes(const std::uint32_t* rgba, int count, std::uint32_t* pixels)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(rgba);
    for (int x = 0; x < count; ++x, bytes += 4)
        pixels[x] = 0xff000000u | std::uint32_t{bytes[0]} << 16 | std::uint32_t{bytes[1]} << 8 | bytes[2];
}

} // namespace

const PixelRows& portablePixelRows()
{
    static const PixelRows rows{intoPlanes, fromRgbaBytes};
    return rows;
}

const PixelRows& pixelRows()
{
    static const PixelRows& rows = avx2PixelRows() ? *avx2PixelRows() : portablePixelRows();
    return rows;
}

} // namespace velmora::sdk::integration::intern
