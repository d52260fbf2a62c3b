#pragma once

#include "Model.h"

#include <string>

namespace velmora::model {

/// From where a model is seen.
struct ModelView {
    double aboutVertical = 28; ///< degrees
    double tilt = 25;          ///< degrees: 0 from the side, 90 from above
    double zoom = 1;
    double panX = 0; ///< fractions of the frame
    double panY = 0;
    bool isParallel = false;

    void rotate(double degreesAboutVertical, double degreesOfTilt);
    void zoomAbout(double factor, double x, double y, double centreX);
    std::string text() const;
    /// False, and nothing has changed, for a text that is no view.
    bool take(const std::string& text);
};

/// Row by row, for columns: as VTK's.
using Matrix = std::array<double, 16>;

struct Box {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// Where a frame has the model: beside the legend, if there is one.
constexpr double LegendShare = 0.2; ///< of the frame's width
double centreOfModel(bool hasLegend);

/// The perspective of one drawing, or a view without any. Zooming and moving happen in the picture, after the
/// perspective: they change neither the angle of sight nor the shape that is seen, and nothing comes too near.
class Projection {
public:
    /// The frame's size is in any unit; places are fractions of the frame.
    Projection(const ModelView& view, const Bounds& bounds, bool hasLegend, double frameWidth, double frameHeight);

    /// Fractions of the frame and the depth from the viewer.
    Point3 project(const Point3& point) const;
    /// Two points in sight, the nearest and the farthest, that the picture shows at a place.
    void ray(double x, double y, Point3& nearest, Point3& farthest) const;
    /// What one frame's height is in the model's units, where its centre is.
    double heightAtCentre() const { return m_frameHeight / m_scale; }

    Point3 eye() const { return fromEye({0, 0, 0}); }
    Point3 target() const { return m_target; }
    Point3 up() const { return {m_rotation[3], m_rotation[4], m_rotation[5]}; }
    double nearest() const { return m_near; }
    double farthest() const { return m_far; }
    bool isParallel() const { return m_isParallel; }
    /// For a viewport that shows this part of the frame, in the frame's unit.
    Matrix matrixFor(const Box& part) const;

private:
    Point3 toEye(const Point3& point) const;
    Point3 fromEye(const Point3& point) const;
    double fittingScale(const Bounds& bounds, double width, double height) const;

    std::array<double, 9> m_rotation{}; ///< rows are the eye's axes
    Point3 m_target{};
    double m_distance = 1;
    double m_near = 1;
    double m_far = 2;
    bool m_isParallel = false;
    double m_frameWidth = 1;
    double m_frameHeight = 1;
    double m_scale = 1;   ///< frame units of one of the model's, at the target
    double m_centreX = 0; ///< of the model, in the frame
    double m_centreY = 0;
};

} // namespace velmora::model
