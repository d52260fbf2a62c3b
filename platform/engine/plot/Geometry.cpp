#include "engine/plot/Geometry.h"

namespace velmora::engine {

namespace {

/// One border of the clipping by Liang and Barsky: keeps from..to inside.
bool cut(double direction, double distance, double& from, double& to)
{
    if (direction == 0)
        return distance >= 0;
    const double t = distance / direction;
    if (direction < 0)
        from = std::max(from, t);
    else
        to = std::min(to, t);
    return from <= to;
}

double side(Point a, Point b, Point p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

bool triangleContains(Point a, Point b, Point c, Point p)
{
    const double ab = side(a, b, p);
    const double bc = side(b, c, p);
    const double ca = side(c, a, p);
    return (ab >= 0 && bc >= 0 && ca >= 0) || (ab <= 0 && bc <= 0 && ca <= 0);
}

} // namespace

bool clipLine(const Rect& rect, Point& a, Point& b)
{
    const Point d{b.x - a.x, b.y - a.y};
    double from = 0;
    double to = 1;
    if (!cut(-d.x, a.x - rect.x1, from, to) || !cut(d.x, rect.x2 - a.x, from, to) ||
        !cut(-d.y, a.y - rect.y1, from, to) || !cut(d.y, rect.y2 - a.y, from, to))
        return false;
    const Point start = a;
    if (to < 1)
        b = {start.x + to * d.x, start.y + to * d.y};
    if (from > 0)
        a = {start.x + from * d.x, start.y + from * d.y};
    return true;
}

bool triangleMeetsRect(const Rect& rect, Point a, Point b, Point c)
{
    const Point corners[] = {a, b, c};
    for (int i = 0; i < 3; ++i) {
        Point from = corners[i];
        Point to = corners[(i + 1) % 3];
        if (clipLine(rect, from, to))
            return true;
    }
    return triangleContains(a, b, c, {rect.x1, rect.y1});
}

} // namespace velmora::engine
