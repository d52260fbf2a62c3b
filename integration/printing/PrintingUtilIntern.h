#pragma once

#include <QtGlobal>

class QPrinter;

namespace velmora::sdk::integration {

/// The sides of a sheet in whole millimetres.
struct PaperMillimeters {
    qint64 width;
    qint64 height;
};

/// Multiplied by 2.54, then by 10, then 0.499 added, then cut off. The order counts: it decides how
/// a size on the boundary between two millimetres falls.
qint64 wholeMillimetersFromInches(double inches);
/// Divided by 25.4 and not rounded.
double inchesFromWholeMillimeters(qint64 millimeters);
/// Whether both sides differ by at most 1 mm.
bool isSamePaper(const PaperMillimeters& a, const PaperMillimeters& b);

/// True when the engine took the printer's orientation as a change.
bool SetKernelOrientationFromPrinter(QPrinter& printer);
/// True when the engine took the printer's paper as a change, and always when it is one of the
/// engine's six papers.
bool SetKernelPageSizeFromPrinter(QPrinter& printer);

} // namespace velmora::sdk::integration
