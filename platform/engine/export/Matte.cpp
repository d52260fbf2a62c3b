#include "engine/export/Matte.h"

#include <algorithm>

namespace velmora::engine {
namespace {

constexpr int Opaque = 255;

/// Of one pixel. The three colours tell the same, but for rounding.
int alphaOf(const unsigned char* onWhite, const unsigned char* onBlack)
{
    int ground = 0;
    for (int c = 0; c < 3; ++c)
        ground += onWhite[c] - onBlack[c];
    return std::clamp(Opaque - (ground + 1) / 3, 0, Opaque);
}

} // namespace

void matteRow(const unsigned char* onWhite, const unsigned char* onBlack, int pixels, unsigned char* rgba)
{
    for (int x = 0; x < pixels; ++x, onWhite += 3, onBlack += 3, rgba += 4) {
        const int alpha = alphaOf(onWhite, onBlack);
        for (int c = 0; c < 3; ++c)
            rgba[c] = alpha == 0
                          ? 0
                          : static_cast<unsigned char>(std::min((onBlack[c] * Opaque + alpha / 2) / alpha, Opaque));
        rgba[3] = static_cast<unsigned char>(alpha);
    }
}

} // namespace velmora::engine
