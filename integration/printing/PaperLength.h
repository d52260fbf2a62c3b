#pragma once

#include <QtGlobal>

namespace velmora::sdk::integration {

/// Multiplied by 2.54, then by 10, then 0.499 added, then cut off. The order counts, and that each
/// step is rounded: they decide how a size on the boundary between two millimetres falls.
qint64 wholeMillimetersFromInches(double inches);
/// Divided by 25.4 and not rounded.
double inchesFromWholeMillimeters(qint64 millimeters);

} // namespace velmora::sdk::integration
