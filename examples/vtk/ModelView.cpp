#include "ModelView.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace velmora::model {
namespace {

constexpr double Degree = 3.14159265358979323846 / 180;
constexpr double SmallestZoom = 0.01;
constexpr double LargestZoom = 10000;
constexpr double HighestTilt = 90;
// From the ball around the model, in its radii; the perspective of a picture seen at a comfortable distance.
constexpr double Distance = 3.6;
// Of the frame that the whole model takes.
constexpr double Filled = 0.92;
constexpr const char* Kind = "model";

} // namespace

void ModelView::rotate(double degreesAboutVertical, double degreesOfTilt)
{
    if (!std::isfinite(degreesAboutVertical) || !std::isfinite(degreesOfTilt))
        return;
    isParallel = false;
    aboutVertical = std::remainder(aboutVertical + degreesAboutVertical, 360.0);
    tilt = std::clamp(tilt + degreesOfTilt, -HighestTilt, HighestTilt);
}

// The point keeps its place: what lies around the model's centre moves away from it.
void ModelView::zoomAbout(double factor, double x, double y, double centreX)
{
    if (!(factor > 0))
        return;
    const double zoomed = std::clamp(zoom * factor, SmallestZoom, LargestZoom);
    const double real = zoomed / zoom;
    panX = (x - centreX) * (1 - real) + panX * real;
    panY = (y - 0.5) * (1 - real) + panY * real;
    zoom = zoomed;
}

std::string ModelView::text() const
{
    std::string text = Kind;
    for (const double number : {aboutVertical, tilt, zoom, panX, panY, isParallel ? 1.0 : 0.0}) {
        std::array<char, 40> digits{};
        text += ' ';
        text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
    }
    return text;
}

bool ModelView::take(const std::string& text)
{
    const std::string kind = Kind;
    if (text.compare(0, kind.size(), kind) != 0)
        return false;
    std::array<double, 6> numbers{};
    const char* at = text.data() + kind.size();
    const char* const end = text.data() + text.size();
    for (double& number : numbers) {
        if (at == end || *at != ' ')
            return false;
        const auto read = std::from_chars(at + 1, end, number);
        if (read.ec != std::errc() || !std::isfinite(number))
            return false;
        at = read.ptr;
    }
    const ModelView view{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5] != 0};
    if (at != end || std::fabs(view.tilt) > HighestTilt || view.zoom < SmallestZoom || view.zoom > LargestZoom)
        return false;
    *this = view;
    return true;
}

double centreOfModel(bool hasLegend)
{
    return hasLegend ? (1 - LegendShare) / 2 : 0.5;
}

Projection::Projection(const ModelView& view, const Bounds& bounds, bool hasLegend, double frameWidth,
                       double frameHeight)
    : m_target(bounds.centre()), m_isParallel(view.isParallel), m_frameWidth(frameWidth), m_frameHeight(frameHeight)
{
    const double sinTurn = std::sin(view.aboutVertical * Degree);
    const double cosTurn = std::cos(view.aboutVertical * Degree);
    const double sinTilt = std::sin(view.tilt * Degree);
    const double cosTilt = std::cos(view.tilt * Degree);
    m_rotation = {cosTurn,
                  -sinTurn,
                  0, //
                  sinTilt * sinTurn,
                  sinTilt * cosTurn,
                  cosTilt, //
                  -cosTilt * sinTurn,
                  -cosTilt * cosTurn,
                  sinTilt};
    const double radius = bounds.radius();
    constexpr double Margin = 1.02;
    m_distance = Distance * radius;
    m_near = m_distance - Margin * radius;
    m_far = m_distance + Margin * radius;
    const double width = (hasLegend ? 1 - LegendShare : 1.0) * frameWidth;
    m_scale = fittingScale(bounds, width, frameHeight) * view.zoom;
    m_centreX = (centreOfModel(hasLegend) + view.panX) * frameWidth;
    m_centreY = (0.5 + view.panY) * frameHeight;
}

// In perspective that of the ball around the model, so that the size does not jump while it turns. A view without
// perspective is not turned, and is as large as the frame allows.
double Projection::fittingScale(const Bounds& bounds, double width, double height) const
{
    const double ball = bounds.radius() / std::sqrt(1 - 1 / (Distance * Distance));
    double halfWidth = m_isParallel ? 0 : ball;
    double halfHeight = halfWidth;
    for (int corner = 0; m_isParallel && corner < 8; ++corner) {
        const Point3 eye =
            toEye({(corner & 1 ? bounds.greatest : bounds.least)[0], (corner & 2 ? bounds.greatest : bounds.least)[1],
                   (corner & 4 ? bounds.greatest : bounds.least)[2]});
        halfWidth = std::max(halfWidth, std::fabs(eye[0]));
        halfHeight = std::max(halfHeight, std::fabs(eye[1]));
    }
    // A model may be seen from its edge, without any width.
    const double least = bounds.radius() * 1e-3;
    return Filled / 2 * std::min(width / std::max(halfWidth, least), height / std::max(halfHeight, least));
}

Point3 Projection::toEye(const Point3& point) const
{
    Point3 eye{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t i = 0; i < 3; ++i)
            eye[row] += m_rotation[3 * row + i] * (point[i] - m_target[i]);
    eye[2] -= m_distance;
    return eye;
}

Point3 Projection::fromEye(const Point3& point) const
{
    Point3 found = m_target;
    const Point3 turned{point[0], point[1], point[2] + m_distance};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t i = 0; i < 3; ++i)
            found[i] += m_rotation[3 * row + i] * turned[row];
    return found;
}

Point3 Projection::project(const Point3& point) const
{
    const Point3 eye = toEye(point);
    const double scale = m_isParallel ? m_scale : m_scale * m_distance / std::max(-eye[2], m_near / 2);
    return {(m_centreX + scale * eye[0]) / m_frameWidth, (m_centreY + scale * eye[1]) / m_frameHeight, -eye[2]};
}

void Projection::ray(double x, double y, Point3& nearest, Point3& farthest) const
{
    const double across = (x * m_frameWidth - m_centreX) / m_scale;
    const double upwards = (y * m_frameHeight - m_centreY) / m_scale;
    const auto at = [&](double depth) {
        const double spread = m_isParallel ? 1 : depth / m_distance;
        return fromEye({across * spread, upwards * spread, -depth});
    };
    nearest = at(m_near);
    farthest = at(m_far);
}

Matrix Projection::matrixFor(const Box& part) const
{
    const double unit = m_isParallel ? 1 / m_scale : m_near / (m_scale * m_distance); ///< where it is measured
    const double left = (part.x - m_centreX) * unit;
    const double bottom = (part.y - m_centreY) * unit;
    const double width = part.width * unit;
    const double height = part.height * unit;
    const double depth = m_far - m_near;
    const double acrossMiddle = (2 * left + width) / width;
    const double upMiddle = (2 * bottom + height) / height;
    if (m_isParallel)
        return {2 / width, 0,          0,          -acrossMiddle,
                0,         2 / height, 0,          -upMiddle, //
                0,         0,          -2 / depth, -(m_far + m_near) / depth,
                0,         0,          0,          1};
    return {2 * m_near / width,
            0,
            acrossMiddle,
            0,
            0,
            2 * m_near / height,
            upMiddle,
            0, //
            0,
            0,
            -(m_far + m_near) / depth,
            -2 * m_far * m_near / depth,
            0,
            0,
            -1,
            0};
}

} // namespace velmora::model
