#include "tests/platform/export/ReadPng.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

#include <png.h>

namespace velmora::test {
namespace {

// Thrown through libpng, which is built with unwind tables: enough for a test.
void fail(png_structp, png_const_charp message)
{
    throw std::runtime_error(message);
}

void readInto(PngPicture& picture, std::FILE* file, png_structp png, png_infop info)
{
    png_init_io(png, file);
    png_read_info(png, info);
    picture.width = static_cast<int>(png_get_image_width(png, info));
    picture.height = static_cast<int>(png_get_image_height(png, info));
    picture.bitDepth = png_get_bit_depth(png, info);
    picture.isRgb = png_get_color_type(png, info) == PNG_COLOR_TYPE_RGB;
    picture.hasAlpha = png_get_color_type(png, info) == PNG_COLOR_TYPE_RGB_ALPHA;
    picture.dotsPerMetre = png_get_pixels_per_meter(png, info);
    const std::size_t rowBytes = png_get_rowbytes(png, info);
    picture.bytes.resize(rowBytes * static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y)
        png_read_row(png, picture.bytes.data() + rowBytes * static_cast<std::size_t>(y), nullptr);
    png_read_end(png, info);
}

} // namespace

Pixel PngPicture::at(int x, int yFromTop) const
{
    const auto i =
        (static_cast<std::size_t>(yFromTop) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) *
        (hasAlpha ? 4 : 3);
    return {bytes.at(i), bytes.at(i + 1), bytes.at(i + 2)};
}

int PngPicture::alphaAt(int x, int yFromTop) const
{
    const std::size_t row = static_cast<std::size_t>(yFromTop) * static_cast<std::size_t>(width);
    return bytes.at((row + static_cast<std::size_t>(x)) * 4 + 3);
}

Pixel PngPicture::onGround(int x, int yFromTop, int grey) const
{
    const Pixel colour = at(x, yFromTop);
    const int alpha = alphaAt(x, yFromTop);
    const auto mixed = [&](int value) { return (value * alpha + grey * (255 - alpha) + 127) / 255; };
    return {mixed(colour.red), mixed(colour.green), mixed(colour.blue)};
}

int PngPicture::countOther(const Pixel& colour) const
{
    int count = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            count += at(x, y) != colour ? 1 : 0;
    return count;
}

PngPicture readPng(const std::string& fileName)
{
    PngPicture picture;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(fileName.c_str(), "rb"), &std::fclose);
    if (!file) {
        picture.problem = "there is no file";
        return picture;
    }
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, fail);
    png_infop info = png_create_info_struct(png);
    try {
        readInto(picture, file.get(), png, info);
    } catch (const std::exception& error) {
        picture.problem = error.what();
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return picture;
}

} // namespace velmora::test
