#pragma once

#include "engine/plot/Geometry.h"
#include "engine/plot/Plot.h"
#include "engine/plot/Stroke.h"
#include "engine/plot/surface/SurfaceShape.h"

#include <array>

namespace velmora::engine {

/// From where a surface is seen.
struct SurfaceView {
    double aboutVertical = 28; ///< degrees
    double tilt = 33;          ///< degrees: 0 from the side, 90 from above
    double zoom = 1;
    double panX = 0; ///< fractions of the frame
    double panY = 0;
};

/// The perspective of one drawing of a surface. Zooming and moving happen in the picture, after the
/// perspective: they change neither the angle of sight nor the shape that is seen.
class Camera {
public:
    using Matrix = std::array<double, 16>; ///< column by column, as OpenGL takes it

    /// `area` is where the whole surface fits into, in frame pixels.
    Camera(const SurfaceView& view, const SurfaceShape& shape, const Rect& frame, const Rect& area);

    /// Frame pixels and depth, -1 nearest to 1 farthest.
    StrokePoint project(const Vector3& point) const;
    /// How near a point is to the viewer; more is nearer.
    double nearness(const Vector3& point) const { return toEye(point).z; }
    /// Frame pixels a unit of the box takes at its centre.
    double scale() const { return m_scale; }

    Matrix modelMatrix() const;
    /// For a target: its viewport is the whole of it.
    Matrix projectionMatrix(const Drawing& drawing) const;

private:
    Vector3 toEye(const Vector3& point) const;

    double m_sinAbout;
    double m_cosAbout;
    double m_sinTilt;
    double m_cosTilt;
    double m_scale = 1;
    double m_near = 1;
    double m_far = 2;
    Point m_center;
};

} // namespace velmora::engine
