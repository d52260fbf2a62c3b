#include "engine/plot/surface/Camera.h"

#include <cmath>

namespace velmora::engine {

namespace {

constexpr double radian = 3.14159265358979323846 / 180;
// From the box's centre; the perspective of a picture seen at a comfortable distance.
constexpr double distance = 3.6;

} // namespace

Camera::Camera(const SurfaceView& view, const SurfaceShape& shape, const Rect& frame, const Rect& area)
    : m_sinAbout(std::sin(view.aboutVertical * radian)), m_cosAbout(std::cos(view.aboutVertical * radian)),
      m_sinTilt(std::sin(view.tilt * radian)), m_cosTilt(std::cos(view.tilt * radian))
{
    // The floor's circumscribed circle: so the size does not jump while the surface turns.
    const double floorRadius = std::hypot(shape.halfX(), shape.halfY());
    const double boxRadius = std::hypot(floorRadius, shape.halfZ());
    const double upwards = floorRadius * m_sinTilt + shape.halfZ() * m_cosTilt;
    const double towards = floorRadius * m_cosTilt - shape.halfZ() * m_sinTilt;
    const double below = upwards * distance / (distance - towards);
    const double above = upwards * distance / (distance + towards);
    const double wide = 2 * floorRadius / std::sqrt(1 - floorRadius * floorRadius / (distance * distance));
    const double fitting = std::min(area.width() / wide, area.height() / (below + above));
    m_scale = std::max(fitting, 1.0) * view.zoom;
    m_near = distance - boxRadius - 0.05;
    m_far = distance + boxRadius + 0.05;
    // What is near is drawn larger: the picture of the box is not about the box's centre.
    m_center = {(area.x1 + area.x2) / 2 + view.panX * frame.width(),
                (area.y1 + area.y2) / 2 + view.panY * frame.height() + m_scale * (below - above) / 2};
}

Vector3 Camera::toEye(const Vector3& point) const
{
    const double right = point.x * m_cosAbout - point.y * m_sinAbout;
    const double away = point.x * m_sinAbout + point.y * m_cosAbout;
    return {right, away * m_sinTilt + point.z * m_cosTilt, point.z * m_sinTilt - away * m_cosTilt - distance};
}

StrokePoint Camera::project(const Vector3& point) const
{
    const Vector3 eye = toEye(point);
    const double w = -eye.z;
    const double depth = ((m_far + m_near) * w - 2 * m_far * m_near) / ((m_far - m_near) * w);
    return {m_center.x + m_scale * distance * eye.x / w, m_center.y + m_scale * distance * eye.y / w, depth};
}

Camera::Matrix Camera::modelMatrix() const
{
    return {m_cosAbout,
            m_sinAbout * m_sinTilt,
            -m_sinAbout * m_cosTilt,
            0,
            -m_sinAbout,
            m_cosAbout * m_sinTilt,
            -m_cosAbout * m_cosTilt,
            0,
            0,
            m_cosTilt,
            m_sinTilt,
            0,
            0,
            0,
            -distance,
            1};
}

Camera::Matrix Camera::projectionMatrix(const Drawing& drawing) const
{
    const double perX = 2.0 / drawing.targetWidth;
    const double perY = 2.0 / drawing.targetHeight;
    const double shiftX = (m_center.x + drawing.frameX) * perX - 1;
    const double shiftY = (m_center.y + drawing.frameY) * perY - 1;
    const double size = m_scale * distance;
    return {size * perX,
            0,
            0,
            0,
            0,
            size * perY,
            0,
            0,
            -shiftX,
            -shiftY,
            -(m_far + m_near) / (m_far - m_near),
            -1,
            0,
            0,
            -2 * m_far * m_near / (m_far - m_near),
            0};
}

} // namespace velmora::engine
