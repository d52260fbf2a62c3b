#include "engine/plot/xy/Dashes.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

// In widths of the line: dashes, dots, both.
const std::vector<double> patterns[] = {{}, {6, 4}, {1.5, 3}, {8, 3, 1.5, 3}};

} // namespace

Dashes::Dashes(std::size_t pattern, double unit) : m_lengths(patterns[pattern])
{
    for (double& length : m_lengths)
        length *= unit;
    m_left = m_lengths.empty() ? 0 : m_lengths.front();
}

const std::vector<double>& Dashes::lengths(std::size_t pattern)
{
    return patterns[pattern];
}

std::vector<Dashes::Line> Dashes::cut(const Line& line)
{
    if (m_lengths.empty())
        return {line};
    std::vector<Line> dashes;
    const auto isDash = [this] { return m_part % 2 == 0; };
    if (isDash())
        dashes.push_back({line.front()});
    for (std::size_t i = 1; i < line.size(); ++i) {
        const StrokePoint from = line[i - 1];
        const StrokePoint to = line[i];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        for (double done = 0; done < length;) {
            const double step = std::min(m_left, length - done);
            done += step;
            const double t = done / length;
            const StrokePoint at{from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), 0};
            if (isDash())
                dashes.back().push_back(at);
            const bool wasDash = isDash();
            goOn(step);
            if (isDash() && !wasDash)
                dashes.push_back({at});
        }
    }
    return dashes;
}

void Dashes::goOn(double length)
{
    m_left -= length;
    if (m_left > 0)
        return;
    m_part = (m_part + 1) % m_lengths.size();
    m_left = m_lengths[m_part];
}

} // namespace velmora::engine
