#pragma once

#include "integration/toolkit/OwnedVisual.h"

namespace velmora::sdk::integration::toolkit {

/// What an X visual has, or what is wanted of one: sizes in bits and samples a pixel. 0: none.
struct VisualSizes {
    bool doubleBuffer = false;
    bool stereo = false;
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;
    int depth = 0;
    int stencil = 0;
    int accum = 0; ///< each of red, green and blue
    int samples = 0;
};

/// The visual that GLX chooses for at least these sizes; what matters least is given up, one after the other,
/// until there is one. Null without X11, and when nothing but the colours was left and there is none.
OwnedVisual chooseVisualWith(const VisualSizes& wanted);

/// Of an `XVisualInfo*`, which must not be null.
VisualSizes sizesOfVisual(void* visualInfo);

} // namespace velmora::sdk::integration::toolkit
