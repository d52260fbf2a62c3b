#include "engine/plot/surface/Camera.h"

#include <glm/ext/matrix_clip_space.hpp>
#include <glm/ext/matrix_transform.hpp>
#include <glm/trigonometric.hpp>

#include <cmath>

namespace velmora::engine {

namespace {

// From the box's centre; the perspective of a picture seen at a comfortable distance.
constexpr double Distance = 3.6;

} // namespace

Camera::Camera(const SurfaceView& view, const SurfaceShape& shape, const Rect& frame, const Rect& area)
{
    m_toEye = glm::translate(glm::dmat4(1), {0, 0, -Distance});
    m_toEye = glm::rotate(m_toEye, glm::radians(view.tilt - 90), {1, 0, 0});
    m_toEye = glm::rotate(m_toEye, glm::radians(view.aboutVertical), {0, 0, 1});
    const double sinTilt = std::sin(glm::radians(view.tilt));
    const double cosTilt = std::cos(glm::radians(view.tilt));
    // The floor's circumscribed circle: so the size does not jump while the surface turns.
    const double floorRadius = std::hypot(shape.halfX(), shape.halfY());
    const double boxRadius = std::hypot(floorRadius, shape.halfZ());
    const double upwards = floorRadius * sinTilt + shape.halfZ() * cosTilt;
    const double towards = floorRadius * cosTilt - shape.halfZ() * sinTilt;
    const double below = upwards * Distance / (Distance - towards);
    const double above = upwards * Distance / (Distance + towards);
    const double wide = 2 * floorRadius / std::sqrt(1 - floorRadius * floorRadius / (Distance * Distance));
    const double fitting = std::min(area.width() / wide, area.height() / (below + above));
    m_scale = std::max(fitting, 1.0) * view.zoom;
    m_near = Distance - boxRadius - 0.05;
    m_far = Distance + boxRadius + 0.05;
    // What is near is drawn larger: the picture of the box is not about the box's centre.
    m_center = {(area.x1 + area.x2) / 2 + view.panX * frame.width(),
                (area.y1 + area.y2) / 2 + view.panY * frame.height() + m_scale * (below - above) / 2};
}

StrokePoint Camera::project(const glm::dvec3& point) const
{
    const glm::dvec3 eye = toEye(point);
    const double w = -eye.z;
    const double depth = ((m_far + m_near) * w - 2 * m_far * m_near) / ((m_far - m_near) * w);
    return {m_center.x + m_scale * Distance * eye.x / w, m_center.y + m_scale * Distance * eye.y / w, depth};
}

glm::dmat4 Camera::projectionMatrix(const Drawing& drawing) const
{
    const double nearPixel = m_near / (m_scale * Distance);
    const double left = -(m_center.x + drawing.frameX);
    const double bottom = -(m_center.y + drawing.frameY);
    return glm::frustum(left * nearPixel, (left + drawing.targetWidth) * nearPixel, bottom * nearPixel,
                        (bottom + drawing.targetHeight) * nearPixel, m_near, m_far);
}

} // namespace velmora::engine
