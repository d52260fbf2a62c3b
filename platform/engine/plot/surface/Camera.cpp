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
    : m_isParallel(view.isParallel)
{
    m_toEye = glm::translate(glm::dmat4(1), {0, 0, -Distance});
    m_toEye = glm::rotate(m_toEye, glm::radians(view.tilt - 90), {1, 0, 0});
    m_toEye = glm::rotate(m_toEye, glm::radians(view.aboutVertical), {0, 0, 1});
    const double boxRadius = std::hypot(shape.halfX(), shape.halfY(), shape.halfZ());
    m_near = Distance - boxRadius - 0.05;
    m_far = Distance + boxRadius + 0.05;
    m_center = {(area.x1 + area.x2) / 2 + view.panX * frame.width(),
                (area.y1 + area.y2) / 2 + view.panY * frame.height()};
    if (m_isParallel)
        fitParallel(view, shape, area);
    else
        fitInPerspective(view, shape, area);
}

void Camera::fitInPerspective(const SurfaceView& view, const SurfaceShape& shape, const Rect& area)
{
    const double sinTilt = std::sin(glm::radians(view.tilt));
    const double cosTilt = std::cos(glm::radians(view.tilt));
    // The floor's circumscribed circle: so the size does not jump while the surface turns.
    const double floorRadius = std::hypot(shape.halfX(), shape.halfY());
    const double upwards = floorRadius * sinTilt + shape.halfZ() * cosTilt;
    const double towards = floorRadius * cosTilt - shape.halfZ() * sinTilt;
    const double below = upwards * Distance / (Distance - towards);
    const double above = upwards * Distance / (Distance + towards);
    const double wide = 2 * floorRadius / std::sqrt(1 - floorRadius * floorRadius / (Distance * Distance));
    const double fitting = std::min(area.width() / wide, area.height() / (below + above));
    m_scale = std::max(fitting, 1.0) * view.zoom;
    // What is near is drawn larger: the picture of the box is not about the box's centre.
    m_center.y += m_scale * (below - above) / 2;
}

// As large as the box allows: such a view is not turned.
void Camera::fitParallel(const SurfaceView& view, const SurfaceShape& shape, const Rect& area)
{
    const double sinTurn = std::fabs(std::sin(glm::radians(view.aboutVertical)));
    const double cosTurn = std::fabs(std::cos(glm::radians(view.aboutVertical)));
    const double across = shape.halfX() * cosTurn + shape.halfY() * sinTurn;
    const double away = shape.halfX() * sinTurn + shape.halfY() * cosTurn;
    const double upwards = away * std::sin(glm::radians(view.tilt)) + shape.halfZ() * std::cos(glm::radians(view.tilt));
    m_scale = std::max(std::min(area.width() / across, area.height() / upwards) / 2, 1.0) * view.zoom;
}

StrokePoint Camera::project(const glm::dvec3& point) const
{
    const glm::dvec3 eye = toEye(point);
    if (m_isParallel)
        return {m_center.x + m_scale * eye.x, m_center.y + m_scale * eye.y,
                -(2 * eye.z + m_far + m_near) / (m_far - m_near)};
    const double w = -eye.z;
    const double depth = ((m_far + m_near) * w - 2 * m_far * m_near) / ((m_far - m_near) * w);
    return {m_center.x + m_scale * Distance * eye.x / w, m_center.y + m_scale * Distance * eye.y / w, depth};
}

glm::dmat4 Camera::projectionMatrix(const Drawing& drawing) const
{
    const double pixel = m_isParallel ? 1 / m_scale : m_near / (m_scale * Distance); ///< its side where it is measured
    const double left = -(m_center.x + drawing.frameX) * pixel;
    const double bottom = -(m_center.y + drawing.frameY) * pixel;
    const double right = left + drawing.targetWidth * pixel;
    const double top = bottom + drawing.targetHeight * pixel;
    return m_isParallel ? glm::ortho(left, right, bottom, top, m_near, m_far)
                        : glm::frustum(left, right, bottom, top, m_near, m_far);
}

} // namespace velmora::engine
