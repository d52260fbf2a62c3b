#include "integration/offscreen/PixelRows.h"

// Compiled for AVX2 function by function, so that nothing shared with other sources is: the library
// has to load on machines without.

#if defined(__x86_64__) && defined(__GNUC__)

#include <immintrin.h>

#define VELMORA_AVX2 __attribute__((target("avx2")))

namespace velmora::sdk::integration::intern {

namespace {

VELMORA_AVX2 inline __m256i load(const std::uint32_t* pixels)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels));
}

VELMORA_AVX2 inline void store(void* target, __m256i value)
{
    _mm256_storeu_si256(static_cast<__m256i*>(target), value);
}

/// Eight pixels sorted by channel: 64 bits of blue, green, red and alpha each.
VELMORA_AVX2 inline __m256i byChannel(const std::uint32_t* pixels)
{
    const __m256i channelsOfFour = _mm256_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 0, 4, 8, 12,
                                                    1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const __m256i sorted = _mm256_shuffle_epi8(load(pixels), channelsOfFour);
    return _mm256_permutevar8x32_epi32(sorted, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

/// 32 pixels at once: a 4 x 4 transposition of 64-bit groups.
VELMORA_AVX2 inline void split32(const std::uint32_t* pixels, unsigned char* red, unsigned char* green,
                                 unsigned char* blue)
{
    const __m256i a = byChannel(pixels);
    const __m256i b = byChannel(pixels + 8);
    const __m256i c = byChannel(pixels + 16);
    const __m256i d = byChannel(pixels + 24);
    const __m256i blueRedAB = _mm256_unpacklo_epi64(a, b);
    const __m256i blueRedCD = _mm256_unpacklo_epi64(c, d);
    const __m256i greenAB = _mm256_unpackhi_epi64(a, b);
    const __m256i greenCD = _mm256_unpackhi_epi64(c, d);
    store(blue, _mm256_permute2x128_si256(blueRedAB, blueRedCD, 0x20));
    store(green, _mm256_permute2x128_si256(greenAB, greenCD, 0x20));
    store(red, _mm256_permute2x128_si256(blueRedAB, blueRedCD, 0x31));
}

VELMORA_AVX2 void intoPlanes(const std::uint32_t* pixels, int count, unsigned char* red, unsigned char* green,
                             unsigned char* blue)
{
    int x = 0;
    for (; x + 32 <= count; x += 32)
        split32(pixels + x, red + x, green + x, blue + x);
    portablePixelRows().intoPlanes(pixels + x, count - x, red + x, green + x, blue + x);
}

VELMORA_AVX2 void fromRgbaBytes(const std::uint32_t* rgba, int count, std::uint32_t* pixels)
{
    const __m256i redAndBlueSwapped = _mm256_setr_epi8(2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15, 2, 1, 0, 3,
                                                       6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15);
    const __m256i opaque = _mm256_set1_epi32(static_cast<int>(0xff000000u));
    int x = 0;
    for (; x + 8 <= count; x += 8)
        store(pixels + x, _mm256_or_si256(_mm256_shuffle_epi8(load(rgba + x), redAndBlueSwapped), opaque));
    portablePixelRows().fromRgbaBytes(rgba + x, count - x, pixels + x);
}

} // namespace

const PixelRows* avx2PixelRows()
{
    static const PixelRows rows{intoPlanes, fromRgbaBytes};
    return __builtin_cpu_supports("avx2") ? &rows : nullptr;
}

} // namespace velmora::sdk::integration::intern

#else

namespace velmora::sdk::integration::intern {

const PixelRows* avx2PixelRows()
{
    return nullptr;
}

} // namespace velmora::sdk::integration::intern

#endif
