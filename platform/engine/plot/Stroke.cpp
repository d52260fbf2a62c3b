#include "engine/plot/Stroke.h"

#include <cmath>

namespace velmora::engine {

namespace {

// A turn whose half angle has a smaller cosine is a spike: a mitre would shoot far beyond the point.
constexpr double SharpestMitre = 0.5;
constexpr double Shortest = 1e-6;
constexpr unsigned DiscCorners = 24;
constexpr double Pi = 3.14159265358979323846;

Point directionOf(const StrokePoint& a, const StrokePoint& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    return length < Shortest ? Point{0, 0} : Point{dx / length, dy / length};
}

Point normalOf(Point direction)
{
    return {-direction.y, direction.x};
}

double halfTurnCosine(Point a, Point b)
{
    return std::hypot(a.x + b.x, a.y + b.y) / 2;
}

Point mitre(Point a, Point b)
{
    const Point sum{a.x + b.x, a.y + b.y};
    const double scale = 2 / (sum.x * sum.x + sum.y * sum.y);
    return {-sum.y * scale, sum.x * scale};
}

bool samePlace(const StrokePoint& a, const StrokePoint& b)
{
    return std::hypot(b.x - a.x, b.y - a.y) < Shortest;
}

StrokePoint moved(const StrokePoint& point, Point direction, double by)
{
    return {point.x + direction.x * by, point.y + direction.y * by, point.z};
}

} // namespace

Stroke::Stroke(double width, Color color) : m_half(std::max(width, 1.0) / 2), m_color(color)
{
    m_color.alpha = static_cast<unsigned char>(std::lround(color.alpha * std::min(width, 1.0)));
}

void Stroke::clear()
{
    m_vertices.clear();
    m_indices.clear();
}

// A spike ends one run and begins another one; both reach a little beyond it, so that its tip shows.
void Stroke::addLine(const StrokePoint* points, std::size_t count)
{
    std::vector<StrokePoint> run;
    Point last{0, 0};
    for (std::size_t i = 0; i < count; ++i) {
        if (run.empty() || !samePlace(run.back(), points[i])) {
            const Point direction = run.empty() ? Point{0, 0} : directionOf(run.back(), points[i]);
            if (run.size() > 1 && halfTurnCosine(last, direction) < SharpestMitre) {
                const StrokePoint spike = run.back();
                run.back() = moved(spike, last, m_half / 2);
                addRun(run);
                run.assign(1, moved(spike, direction, -m_half / 2));
            }
            run.push_back(points[i]);
            last = direction;
        }
    }
    addRun(run);
}

void Stroke::addRun(const std::vector<StrokePoint>& points)
{
    if (points.size() < 2)
        return;
    Point before = directionOf(points[0], points[1]);
    addJoint(points[0], normalOf(before));
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        const Point after = directionOf(points[i], points[i + 1]);
        addJoint(points[i], halfTurnCosine(before, after) < SharpestMitre ? normalOf(after) : mitre(before, after));
        addBand(static_cast<unsigned>(m_vertices.size()) - 8);
        before = after;
    }
    addJoint(points.back(), normalOf(before));
    addBand(static_cast<unsigned>(m_vertices.size()) - 8);
}

void Stroke::addBar(const Rect& bar)
{
    const auto first = static_cast<unsigned>(m_vertices.size());
    for (const Point corner : {Point{bar.x1, bar.y1}, {bar.x2, bar.y1}, {bar.x2, bar.y2}, {bar.x1, bar.y2}})
        m_vertices.push_back({static_cast<float>(corner.x), static_cast<float>(corner.y), 0, m_color});
    for (const unsigned i : {0u, 1u, 2u, 0u, 2u, 3u})
        m_indices.push_back(first + i);
}

void Stroke::addDisc(const StrokePoint& center, double radius)
{
    const auto middle = static_cast<unsigned>(m_vertices.size());
    m_vertices.push_back(
        {static_cast<float>(center.x), static_cast<float>(center.y), static_cast<float>(center.z), m_color});
    Color faded = m_color;
    faded.alpha = 0;
    for (unsigned i = 0; i < DiscCorners; ++i) {
        const double angle = 2 * Pi * i / DiscCorners;
        for (double reach : {radius - 0.5, radius + 0.5})
            m_vertices.push_back({static_cast<float>(center.x + std::cos(angle) * reach),
                                  static_cast<float>(center.y + std::sin(angle) * reach), static_cast<float>(center.z),
                                  reach < radius ? m_color : faded});
        const unsigned here = middle + 1 + 2 * i;
        const unsigned next = middle + 1 + 2 * ((i + 1) % DiscCorners);
        const unsigned corners[] = {middle, here, next, here, here + 1, next + 1, here, next + 1, next};
        m_indices.insert(m_indices.end(), corners, corners + 9);
    }
}

void Stroke::addJoint(const StrokePoint& point, Point normal)
{
    const double offsets[] = {-m_half - 0.5, -m_half + 0.5, m_half - 0.5, m_half + 0.5};
    for (int i = 0; i < 4; ++i) {
        Color color = m_color;
        if (i == 0 || i == 3)
            color.alpha = 0;
        m_vertices.push_back({static_cast<float>(point.x + normal.x * offsets[i]),
                              static_cast<float>(point.y + normal.y * offsets[i]), static_cast<float>(point.z), color});
    }
}

void Stroke::addBand(unsigned from)
{
    for (unsigned i = from; i < from + 3; ++i) {
        const unsigned corners[] = {i, i + 1, i + 5, i, i + 5, i + 4};
        m_indices.insert(m_indices.end(), corners, corners + 6);
    }
}

} // namespace velmora::engine
