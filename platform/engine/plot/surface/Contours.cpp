#include "engine/plot/surface/Contours.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr std::size_t MostBytes = std::size_t{16} << 20;
constexpr std::size_t MostLeftOut = 8; ///< points in a row

/// Two corners of the mesh, the smaller index first: neighbouring triangles cross the same line there.
using Edge = std::pair<unsigned, unsigned>;

struct Segment {
    int level;
    Edge from;
    Edge to;
};

glm::dvec3 crossing(const MeshPart& part, const Edge& edge, double level)
{
    const MeshVertex& a = part.vertices[edge.first];
    const MeshVertex& b = part.vertices[edge.second];
    const double t = (level - a.band) / (double(b.band) - a.band);
    return {a.position[0] + t * (double(b.position[0]) - a.position[0]),
            a.position[1] + t * (double(b.position[1]) - a.position[1]),
            a.position[2] + t * (double(b.position[2]) - a.position[2])};
}

// A corner at the level counts as above it: so a line crosses exactly two sides or none.
void addSegment(const MeshPart& part, std::size_t first, int level, double height, std::vector<Segment>& segments)
{
    Edge ends[2];
    int count = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const unsigned a = part.indices[first + i];
        const unsigned b = part.indices[first + (i + 1) % 3];
        if ((part.vertices[a].band >= height) != (part.vertices[b].band >= height) && count < 2)
            ends[count++] = std::minmax(a, b);
    }
    if (count == 2)
        segments.push_back({level, ends[0], ends[1]});
}

std::vector<Segment> segmentsOf(const MeshPart& part, int bands)
{
    std::vector<Segment> segments;
    for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3) {
        const auto band = [&](std::size_t corner) { return part.vertices[part.indices[i + corner]].band; };
        const auto [low, high] = std::minmax({band(0), band(1), band(2)});
        const int first = std::max(1, static_cast<int>(std::ceil(low * static_cast<float>(bands) - 1e-6F)));
        const int last = std::min(bands - 1, static_cast<int>(std::floor(high * static_cast<float>(bands) + 1e-6F)));
        for (int level = first; level <= last; ++level)
            addSegment(part, i, level, static_cast<double>(level) / bands, segments);
    }
    std::stable_sort(segments.begin(), segments.end(),
                     [](const Segment& a, const Segment& b) { return a.level < b.level; });
    return segments;
}

/// Joins the segments of one level to lines.
class Chain {
public:
    Chain(const Segment* first, const Segment* last) : m_first(first), m_used(static_cast<std::size_t>(last - first))
    {
        for (std::size_t i = 0; i < m_used.size(); ++i) {
            m_ends.push_back({first[i].from, i});
            m_ends.push_back({first[i].to, i});
        }
        std::sort(m_ends.begin(), m_ends.end());
    }

    /// The edges that the next line crosses; false when there is none left.
    bool next(std::vector<Edge>& line)
    {
        while (m_at < m_used.size() && m_used[m_at])
            ++m_at;
        if (m_at == m_used.size())
            return false;
        line.clear();
        follow(m_at, m_first[m_at].from, line);
        std::reverse(line.begin(), line.end());
        follow(m_at, m_first[m_at].to, line);
        return true;
    }

private:
    /// From a segment on over one of its ends.
    void follow(std::size_t segment, Edge over, std::vector<Edge>& line)
    {
        line.push_back(over);
        m_used[segment] = true;
        for (std::size_t next = beyond(segment, over); next != m_used.size(); next = beyond(segment, over)) {
            segment = next;
            m_used[segment] = true;
            over = m_first[segment].from == over ? m_first[segment].to : m_first[segment].from;
            line.push_back(over);
        }
    }

    std::size_t beyond(std::size_t segment, const Edge& over) const
    {
        auto end = std::lower_bound(m_ends.begin(), m_ends.end(), std::make_pair(over, std::size_t(0)));
        for (; end != m_ends.end() && end->first == over; ++end)
            if (end->second != segment && !m_used[end->second])
                return end->second;
        return m_used.size();
    }

    const Segment* m_first;
    std::vector<bool> m_used;
    std::vector<std::pair<Edge, std::size_t>> m_ends;
    std::size_t m_at = 0;
};

double distanceFromLine(const glm::dvec3& a, const glm::dvec3& b, const glm::dvec3& p)
{
    const glm::dvec3 d = b - a;
    const glm::dvec3 v = p - a;
    const double squared = glm::dot(d, d);
    return glm::length(squared > 0 ? v - d * (glm::dot(v, d) / squared) : v);
}

ContourLine withoutStraightPoints(const ContourLine& points, double tolerance)
{
    ContourLine kept;
    std::size_t leftOut = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool isInside = i > 0 && i + 1 < points.size();
        if (isInside && leftOut < MostLeftOut && distanceFromLine(kept.back(), points[i + 1], points[i]) < tolerance) {
            ++leftOut;
            continue;
        }
        kept.push_back(points[i]);
        leftOut = 0;
    }
    return kept;
}

} // namespace

ContourLines contoursOf(const MeshPart& part, const SurfaceShape& shape, double tolerance)
{
    const int bands = static_cast<int>(shape.bandEdges().size()) - 1;
    const std::vector<Segment> segments = segmentsOf(part, bands);
    ContourLines lines;
    std::vector<Edge> edges;
    const Segment* const end = segments.data() + segments.size();
    for (const Segment* first = segments.data(); first != end;) {
        const Segment* const last =
            std::find_if(first, end, [first](const Segment& segment) { return segment.level != first->level; });
        Chain chain(first, last);
        while (chain.next(edges)) {
            ContourLine line;
            for (const Edge& edge : edges)
                line.push_back(crossing(part, edge, static_cast<double>(first->level) / bands));
            lines.push_back(withoutStraightPoints(line, tolerance));
        }
        first = last;
    }
    return lines;
}

std::shared_ptr<const ContourLines> KeptContours::find(const Key& key) const
{
    const auto found = m_lines.find(key);
    return found == m_lines.end() ? nullptr : found->second;
}

std::shared_ptr<const ContourLines> KeptContours::add(const Key& key, ContourLines lines)
{
    if (m_bytes > MostBytes) {
        m_lines.clear();
        m_bytes = 0;
    }
    for (const ContourLine& line : lines)
        m_bytes += sizeof(ContourLine) + line.size() * sizeof(glm::dvec3);
    return m_lines[key] = std::make_shared<const ContourLines>(std::move(lines));
}

} // namespace velmora::engine
