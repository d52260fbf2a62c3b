#pragma once

#include <cstdint>
#include <vector>

namespace velmora::engine {

/// Makes one row of RGB pixels out of as many rows of colour planes as the supersampling says: each
/// pixel is the mean of the square of drawn ones that it covers. The mean is taken of the values as
/// they are drawn and not of the light they stand for, as the blending of the drawing does too.
class BoxFilter {
public:
    /// For rows of that many finished pixels.
    BoxFilter(int columns, int supersample);

    /// Adds a drawn row, `columns` * supersample bytes a plane. With the last row that belongs to a
    /// finished one, that is written to `rgb`, and the next begins.
    void add(const unsigned char* red, const unsigned char* green, const unsigned char* blue, unsigned char* rgb);

private:
    void finishRow(unsigned char* rgb);

    int m_columns;
    int m_supersample;
    int m_rows = 0;
    std::vector<std::uint16_t> m_sums; ///< red, green and blue of each finished pixel
};

} // namespace velmora::engine
