#pragma once

namespace velmora::engine {

struct GLFunctions;

/// A place in a drawing area, in pixels from its lower left corner.
struct Mark {
    double x = 0;
    double y = 0;
    bool operator==(const Mark& other) const { return x == other.x && y == other.y; }
};

/// Draws a small ring around the place over what is in the bound framebuffer.
void paintMark(const Mark& mark, const GLFunctions& gl, int width, int height, double pixelsPerPoint);

} // namespace velmora::engine
