#pragma once

#include "Report.h"

#include "interfaces/EngineEnumerations.h"

namespace conformance {

/// Looks at an engine from outside: whether it draws an image of what it shows in slices, ends when it is told to, and
/// leaves no OpenGL state behind. The binding does not run; `longestSlice` is in milliseconds.
void checkEngine(velmora::sdk::integration::ImageRenderingStrategy_e strategy, const char* where, double longestSlice,
                 Report& report);

} // namespace conformance
