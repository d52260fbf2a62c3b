#include "engine/export/PngRows.h"

#include "engine/export/ExportFailure.h"
#include "engine/export/TargetFile.h"

#include <cmath>
#include <csetjmp>
#include <string>

#include <png.h>

namespace velmora::engine {
namespace {

// Plots are flat colours with soft edges. On them the difference to the row above makes the smallest
// files, and is cheaper than trying several filters on each row; beyond this level files hardly shrink.
constexpr int CompressionLevel = 4;
constexpr int Filters = PNG_FILTER_UP;
constexpr std::size_t BufferBytes = std::size_t{256} * 1024; ///< handed to the file at once
constexpr double MetresPerInch = 0.0254;

struct PngShape {
    png_uint_32 width;
    png_uint_32 height;
    png_uint_32 dotsPerMetre; ///< 0: not known
    bool hasAlpha;
};

} // namespace

struct PngRows::Impl {
    explicit Impl(TargetFile& target) : file(target) {}
    ~Impl() { png_destroy_write_struct(&png, &info); }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    // libpng leaves an operation that failed by a jump, over its own frames and those of the
    // functions it calls here. Whatever can be jumped over has nothing to destroy.
    bool begin(const PngShape& shape);
    bool writeRow(const unsigned char* pixels);
    bool end();

    static void onError(png_structp png, png_const_charp message);
    static void onWarning(png_structp, png_const_charp) {}
    static void onWrite(png_structp png, png_bytep bytes, std::size_t count);
    static void onFlush(png_structp) {}

    TargetFile& file;
    png_structp png = nullptr;
    png_infop info = nullptr;
    char message[128] = ""; ///< of the operation that failed
};

void PngRows::Impl::onError(png_structp png, png_const_charp message)
{
    auto* const self = static_cast<Impl*>(png_get_error_ptr(png));
    std::size_t i = 0;
    for (; message && message[i] && i + 1 < sizeof(self->message); ++i)
        self->message[i] = message[i];
    self->message[i] = '\0';
    png_longjmp(png, 1);
}

void PngRows::Impl::onWrite(png_structp png, png_bytep bytes, std::size_t count)
{
    if (!static_cast<Impl*>(png_get_io_ptr(png))->file.write(bytes, count))
        png_error(png, "it could not be written");
}

bool PngRows::Impl::begin(const PngShape& shape)
{
    png = png_create_write_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning);
    info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png)))
        return false;
    png_set_write_fn(png, this, onWrite, onFlush);
    png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_compression_buffer_size(png, BufferBytes);
    png_set_compression_level(png, CompressionLevel);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, Filters);
    png_set_IHDR(png, info, shape.width, shape.height, 8,
                 shape.hasAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (shape.dotsPerMetre > 0)
        png_set_pHYs(png, info, shape.dotsPerMetre, shape.dotsPerMetre, PNG_RESOLUTION_METER);
    png_write_info(png, info);
    return true;
}

bool PngRows::Impl::writeRow(const unsigned char* pixels)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_write_row(png, pixels);
    return true;
}

bool PngRows::Impl::end()
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_write_end(png, info);
    return true;
}

PngRows::PngRows(TargetFile& file, int width, int height, double dotsPerInch, bool hasAlpha) : m_impl(new Impl(file))
{
    check(m_impl->begin({static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
                         static_cast<png_uint_32>(std::lround(dotsPerInch / MetresPerInch)), hasAlpha}));
}

PngRows::~PngRows() = default;

void PngRows::takeRow(int, const unsigned char* pixels)
{
    check(m_impl->writeRow(pixels));
}

void PngRows::finish()
{
    check(m_impl->end());
}

void PngRows::check(bool succeeded) const
{
    if (succeeded)
        return;
    m_impl->file.requireNoError();
    throw ExportFailure(std::string("The picture could not be turned into PNG: ") + m_impl->message +
                        ". Make memory free, or reduce the image size.");
}

} // namespace velmora::engine
