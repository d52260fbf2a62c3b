#pragma once

#include <cstdint>

namespace velmora::sdk::integration::intern {

/// What an export does with every pixel of an image, a row at a time. No row needs to be aligned;
/// nothing is allocated and nothing beyond `count` pixels is touched. Inputs and outputs must not
/// overlap.
struct PixelRows {
    /// Splits pixels 0xAARRGGBB into three planes of `count` bytes; alpha is dropped.
    void (*intoPlanes)(const std::uint32_t* pixels, int count, unsigned char* red, unsigned char* green,
                       unsigned char* blue);
    /// Turns pixels of the bytes R, G, B, A into opaque pixels 0xffRRGGBB.
    void (*fromRgbaBytes)(const std::uint32_t* rgba, int count, std::uint32_t* pixels);
};

/// The fastest form that this machine can run.
const PixelRows& pixelRows();

/// The form that every machine can run, by which the others are measured.
const PixelRows& portablePixelRows();
/// The form for AVX2, or null where the machine or the compiler has none.
const PixelRows* avx2PixelRows();

} // namespace velmora::sdk::integration::intern
