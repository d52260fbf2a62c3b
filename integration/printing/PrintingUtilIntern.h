#pragma once

#include <QtGlobal>

class QPrinter;

namespace velmora::sdk::integration {

/// The sides of a sheet in whole millimetres.
struct PaperMillimeters {
    qint64 width;
    qint64 height;
};

/// Whether both sides differ by at most 1 mm.
bool isSamePaper(const PaperMillimeters& a, const PaperMillimeters& b);

/// True when the engine took the printer's orientation as a change.
bool SetKernelOrientationFromPrinter(QPrinter& printer);
/// True when the engine took the printer's paper as a change, and always when it is one of the
/// engine's six papers.
bool SetKernelPageSizeFromPrinter(QPrinter& printer);

} // namespace velmora::sdk::integration
