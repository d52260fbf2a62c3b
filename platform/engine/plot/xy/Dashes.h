#pragma once

#include "engine/plot/Stroke.h"

#include <cstddef>
#include <vector>

namespace velmora::engine {

/// Cuts a line into dashes. The pattern goes on from one piece of the line to the next.
class Dashes {
public:
    using Line = std::vector<StrokePoint>;

    /// Pattern 0 leaves lines whole. `unit` is the width of the line, in pixels.
    Dashes(std::size_t pattern, double unit);

    std::vector<Line> cut(const Line& line);

    /// Of dash, gap, dash, … in widths of the line; empty for an unbroken one.
    static const std::vector<double>& lengths(std::size_t pattern);

private:
    void goOn(double length);

    std::vector<double> m_lengths; ///< of dash, gap, dash, …
    std::size_t m_part = 0;        ///< of the pattern
    double m_left = 0;             ///< of that part
};

} // namespace velmora::engine
