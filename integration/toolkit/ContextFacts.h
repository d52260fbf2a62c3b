#pragma once

#include "chosen_toolkit/GLWidget.h"
#include "integration/toolkit/FormatRequest.h"

namespace velmora::sdk::integration::toolkit {

/// What an OpenGL context has: sizes in bits a pixel.
struct ContextFacts {
    bool hasAccum;
    int accumSize;
    int alphaSize;
    bool hasDepth;
    int depthSize;
    int stencilSize;
    int samples;
    bool hasDoubleBuffer;
    int redSize;
    int greenSize;
    int blueSize;
    int majorVersion;
    int minorVersion;
    int plane;
    int swapInterval;
};
ContextFacts factsOf(const ContextFormat& format);

/// The format to ask for a context on the screen with: double-buffered, with depth and samples.
ContextFormat screenFormat(const FormatRequest& request);

} // namespace velmora::sdk::integration::toolkit
