#pragma once

#include "ModelView.h"

#include <optional>

namespace velmora::model {

/// What a picture shows at a place.
struct Hit {
    std::size_t piece = 0;
    vtkIdType cell = 0; ///< of the piece
    Point3 point{};
    std::optional<double> value; ///< where the model is coloured with some
};

/// The nearest to the viewer at a place of the frame, or as near to it as a person points.
std::optional<Hit> hitAt(const Model& model, const Projection& projection, double x, double y);

/// The cells of each piece that have a corner in a rectangle of the frame (x1 <= x2, y1 <= y2).
std::vector<std::vector<vtkIdType>> cellsIn(const Model& model, const Projection& projection, double x1, double y1,
                                            double x2, double y2);

} // namespace velmora::model
