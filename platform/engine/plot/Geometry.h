#pragma once

#include <algorithm>

namespace velmora::engine {

struct Point {
    double x = 0;
    double y = 0;
};

/// A rectangle, x1 <= x2 and y1 <= y2.
struct Rect {
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;

    double width() const { return x2 - x1; }
    double height() const { return y2 - y1; }
    bool contains(Point p) const { return p.x >= x1 && p.x <= x2 && p.y >= y1 && p.y <= y2; }
    bool meets(const Rect& other) const { return x1 <= other.x2 && other.x1 <= x2 && y1 <= other.y2 && other.y1 <= y2; }
    Rect grown(double by) const { return {x1 - by, y1 - by, x2 + by, y2 + by}; }
    void take(Point p)
    {
        x1 = std::min(x1, p.x);
        y1 = std::min(y1, p.y);
        x2 = std::max(x2, p.x);
        y2 = std::max(y2, p.y);
    }
};

struct Color {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    unsigned char alpha = 255;
};

/// Cuts the line from `a` to `b` to the rectangle; false when nothing of it is inside.
bool clipLine(const Rect& rect, Point& a, Point& b);

/// Whether any part of the triangle lies in the rectangle.
bool triangleMeetsRect(const Rect& rect, Point a, Point b, Point c);

} // namespace velmora::engine
