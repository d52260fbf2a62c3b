#pragma once

#include "engine/plot/Geometry.h"

#include <cmath>
#include <limits>

namespace velmora::engine {

/// Which axes of a plot of lines are logarithmic.
struct AxisScales {
    bool isLogX = false;
    bool isLogY = false;

    double alongX(double value) const { return isLogX ? logarithm(value) : value; }
    double alongY(double value) const { return isLogY ? logarithm(value) : value; }
    bool hasPlaceFor(Point value) const { return !(isLogX && value.x <= 0) && !(isLogY && value.y <= 0); }

private:
    static double logarithm(double value)
    {
        return value > 0 ? std::log10(value) : -std::numeric_limits<double>::infinity();
    }
};

} // namespace velmora::engine
