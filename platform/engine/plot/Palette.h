#pragma once

#include "engine/plot/Geometry.h"

#include <cstddef>

namespace velmora::engine {

namespace palette {

constexpr Color Ink{38, 43, 51, 255};        ///< titles and axis titles
constexpr Color Hidden{176, 182, 190, 255};  ///< entries of the legend whose lines are not shown
constexpr Color Label{78, 86, 98, 255};      ///< tick labels
constexpr Color Axis{96, 104, 116, 255};     ///< axes and frames
constexpr Color Grid{223, 227, 232, 255};    ///< light lines behind the data
constexpr Color BoxEdge{186, 192, 200, 255}; ///< of the box behind a surface
constexpr Color Contour{44, 50, 60, 200};    ///< lines of equal height
constexpr Color SurfaceBorder{70, 76, 86, 255};
constexpr Color Selected{240, 120, 0, 255};    ///< what is selected; no line has this colour
constexpr Color SelectedText{166, 74, 0, 255}; ///< on the selected ground
constexpr Color Veil{255, 255, 255, 220};      ///< lets text be read where a zoomed surface lies under it
constexpr Color SelectedGround{255, 226, 190, 255};

} // namespace palette

/// The colour of the n-th line. Neighbours differ also for the colour-blind.
Color lineColor(std::size_t line);

/// Lines of the same colour have different dashes (see Dashes): the pattern of the n-th line.
std::size_t lineDashes(std::size_t line);

/// The colour of heights from the lowest (0) to the highest (1): brighter is higher.
Color heightColor(double fraction);

} // namespace velmora::engine
