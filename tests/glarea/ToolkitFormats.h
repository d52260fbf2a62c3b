#pragma once

#include "chosen_toolkit/GLWidget.h"
#include "chosen_toolkit/VisualChoosingContext.h"

#include "integration/toolkit/VisualSizes.h"

#include <memory>
#include <vector>

namespace velmora::test {

/// Every kind of buffer that the toolkit can be asked for, and 4 samples; of the colours no size.
sdk::integration::toolkit::ContextFormat formatOfEverything();
/// One buffer of colours.
sdk::integration::toolkit::ContextFormat formatOfColours();
/// Two buffers of colours and one of depth.
sdk::integration::toolkit::ContextFormat formatWithDepth();

/// What GLX calls the accumulation bits of a format; nothing where the toolkit cannot be asked for any.
std::vector<int> accumulationAttributes();
/// Does nothing where the toolkit cannot be asked for any.
void setAccumulation(sdk::integration::toolkit::ContextFormat& format, int size);

/// What the toolkit is asked for when this context chooses its visual.
sdk::integration::toolkit::VisualSizes
sizesAskedFor(std::unique_ptr<sdk::integration::toolkit::VisualChoosingContext> context);

} // namespace velmora::test
