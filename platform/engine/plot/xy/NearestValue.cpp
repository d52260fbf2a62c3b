#include "engine/plot/xy/NearestValue.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr double NearEnough = 0.5; // pixels

double distance(Point a, Point b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Of a place to the nearest point of a rectangle; 0 inside.
double distance(const Rect& rect, Point place)
{
    return distance(Point{std::clamp(place.x, rect.x1, rect.x2), std::clamp(place.y, rect.y1, rect.y2)}, place);
}

class Search {
public:
    Search(const AxisMap& map, Point place, double reach) : m_map(map), m_place(place), m_distance(reach) {}

    bool look(const Series& series, std::size_t line)
    {
        bool hasFound = false;
        for (std::size_t row = 0; row < series.size() && m_distance > NearEnough; row += SeriesBlocks::RowsABlock)
            if (mayHold(series.blocks->blockOf(row)))
                hasFound = lookInBlock(series, line, row) || hasFound;
        return hasFound;
    }

    const NearestValue& found() const { return m_found; }

private:
    bool mayHold(const SeriesBlocks::Block& block) const
    {
        const Rect& values = block.covered;
        if (values.x1 > values.x2)
            return false;
        const Point lower = m_map({values.x1, values.y1});
        const Point upper = m_map({values.x2, values.y2});
        return distance(Rect{lower.x, lower.y, upper.x, upper.y}, m_place) < m_distance;
    }

    bool lookInBlock(const Series& series, std::size_t line, std::size_t first)
    {
        bool hasFound = false;
        const std::size_t end = std::min(first + SeriesBlocks::RowsABlock, series.size());
        for (std::size_t row = first; row < end; ++row) {
            const Point at = m_map(series.at(row));
            const double away = distance(at, m_place);
            if (!(away < m_distance) || !m_map.plot.contains(at))
                continue;
            m_distance = away;
            m_found = {line, row, at};
            hasFound = true;
        }
        return hasFound;
    }

    const AxisMap& m_map;
    Point m_place;
    double m_distance;
    NearestValue m_found;
};

} // namespace

bool findNearestValue(const std::vector<Series>& series, const AxisMap& map, Point place, double reach,
                      NearestValue& found)
{
    Search search(map, place, reach);
    bool hasFound = false;
    for (std::size_t line = 0; line < series.size(); ++line)
        if (series[line].isShown)
            hasFound = search.look(series[line], line) || hasFound;
    found = search.found();
    return hasFound;
}

} // namespace velmora::engine
