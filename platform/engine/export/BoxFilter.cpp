#include "engine/export/BoxFilter.h"

#include "engine/export/PictureRequest.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace velmora::engine {
namespace {

static_assert(LargestSupersample * LargestSupersample * 255 <= 0xffff, "the sums must fit their type");

// The width of the square is a constant of the loop, so that the compiler can unroll it.
template <int Width>
void addPlane(const unsigned char* plane, int columns, std::uint16_t* sums)
{
    for (std::ptrdiff_t x = 0; x < columns; ++x) {
        int sum = 0;
        for (int i = 0; i < Width; ++i)
            sum += plane[x * Width + i];
        sums[3 * x] = static_cast<std::uint16_t>(sums[3 * x] + sum);
    }
}

using AddPlane = void (*)(const unsigned char*, int, std::uint16_t*);
constexpr AddPlane PlaneAdders[] = {addPlane<1>, addPlane<2>, addPlane<3>, addPlane<4>,
                                    addPlane<5>, addPlane<6>, addPlane<7>, addPlane<8>};
static_assert(std::size(PlaneAdders) == LargestSupersample, "one for each supersampling");

} // namespace

BoxFilter::BoxFilter(int columns, int supersample)
    : m_columns(columns), m_supersample(supersample), m_sums(static_cast<std::size_t>(columns) * 3)
{}

void BoxFilter::add(const unsigned char* red, const unsigned char* green, const unsigned char* blue, unsigned char* rgb)
{
    const AddPlane addPlaneOfWidth = PlaneAdders[m_supersample - 1];
    addPlaneOfWidth(red, m_columns, m_sums.data());
    addPlaneOfWidth(green, m_columns, m_sums.data() + 1);
    addPlaneOfWidth(blue, m_columns, m_sums.data() + 2);
    if (++m_rows == m_supersample)
        finishRow(rgb);
}

void BoxFilter::finishRow(unsigned char* rgb)
{
    const int count = m_supersample * m_supersample;
    for (std::size_t i = 0; i < m_sums.size(); ++i)
        rgb[i] = static_cast<unsigned char>((m_sums[i] + count / 2) / count);
    std::fill(m_sums.begin(), m_sums.end(), std::uint16_t(0));
    m_rows = 0;
}

} // namespace velmora::engine
