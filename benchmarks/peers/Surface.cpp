#include "benchmarks/peers/Contender.h"

#include <cmath>

namespace velmora::benchmark {

Surface islandOf(int side)
{
    Surface surface;
    surface.side = side;
    surface.heights.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double x = 2.0 * column / (side - 1) - 1.0;
            const double y = 2.0 * row / (side - 1) - 1.0;
            const double hills = 0.06 * std::sin(19.0 * x) * std::cos(23.0 * y);
            surface.heights.push_back(static_cast<float>(std::exp(-3.0 * (x * x + y * y)) + hills));
        }
    }
    return surface;
}

} // namespace velmora::benchmark
