#pragma once

#include "engine/plot/Geometry.h"
#include "engine/plot/Plot.h"
#include "engine/plot/Stroke.h"
#include "engine/plot/surface/SurfaceShape.h"

#include <glm/mat4x4.hpp>

namespace velmora::engine {

/// From where a surface is seen.
struct SurfaceView {
    double aboutVertical = 28; ///< degrees
    double tilt = 33;          ///< degrees: 0 from the side, 90 from above
    double zoom = 1;
    double panX = 0; ///< fractions of the frame
    double panY = 0;
    bool isParallel = false; ///< without perspective, as a map
};

/// The perspective of one drawing of a surface, or a view without any. Zooming and moving happen in the picture, after
/// the perspective: they change neither the angle of sight nor the shape that is seen.
class Camera {
public:
    /// `area` is where the whole surface fits into, in frame pixels.
    Camera(const SurfaceView& view, const SurfaceShape& shape, const Rect& frame, const Rect& area);

    /// Frame pixels and depth, -1 nearest to 1 farthest.
    StrokePoint project(const glm::dvec3& point) const;
    /// How near a point is to the viewer; more is nearer.
    double nearness(const glm::dvec3& point) const { return toEye(point).z; }
    /// Frame pixels a unit of the box takes at its centre.
    double scale() const { return m_scale; }

    const glm::dmat4& modelMatrix() const { return m_toEye; }
    /// For a target: its viewport is the whole of it.
    glm::dmat4 projectionMatrix(const Drawing& drawing) const;

private:
    void fitInPerspective(const SurfaceView& view, const SurfaceShape& shape, const Rect& area);
    void fitParallel(const SurfaceView& view, const SurfaceShape& shape, const Rect& area);
    glm::dvec3 toEye(const glm::dvec3& point) const { return glm::dvec3(m_toEye * glm::dvec4(point, 1)); }

    glm::dmat4 m_toEye;
    double m_scale = 1;
    double m_near = 1;
    double m_far = 2;
    bool m_isParallel = false;
    Point m_center;
};

} // namespace velmora::engine
