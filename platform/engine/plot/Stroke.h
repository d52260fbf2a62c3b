#pragma once

#include "engine/plot/Geometry.h"

#include <cstddef>
#include <vector>

namespace velmora::engine {

/// A corner of a stroke, in pixels; `z` is the depth, 0 without one.
struct StrokeVertex {
    float x;
    float y;
    float z;
    Color color;
};

/// A corner of a line with its depth.
struct StrokePoint {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// Triangles of lines with soft edges: half a pixel beyond the line's width the coverage fades out.
/// Lines thinner than a pixel are a pixel wide and paler. So lines of any width are smooth on any
/// OpenGL, and come out the same in every tile of a picture.
class Stroke {
public:
    /// `width` in pixels.
    Stroke(double width, Color color);

    /// Adds the line through the points.
    void addLine(const StrokePoint* points, std::size_t count);
    /// Adds a rectangle, without soft edges.
    void addBar(const Rect& bar);
    /// Adds a filled circle.
    void addDisc(const StrokePoint& center, double radius);
    void clear();
    bool empty() const { return m_indices.empty(); }

    const std::vector<StrokeVertex>& vertices() const { return m_vertices; }
    const std::vector<unsigned>& indices() const { return m_indices; }

private:
    void addRun(const std::vector<StrokePoint>& points);
    void addJoint(const StrokePoint& point, Point normal);
    void addBand(unsigned from);

    double m_half;
    Color m_color;
    std::vector<StrokeVertex> m_vertices;
    std::vector<unsigned> m_indices;
};

} // namespace velmora::engine
