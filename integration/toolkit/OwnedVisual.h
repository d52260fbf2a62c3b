#pragma once

#include <memory>

namespace velmora::sdk::integration::toolkit {

/// Frees what Xlib allocated.
struct FreeByXlib {
    void operator()(void* memory) const;
};

/// One visual, an `XVisualInfo*` behind a plain pointer: Xlib's macros stay out of headers.
using OwnedVisual = std::unique_ptr<void, FreeByXlib>;

} // namespace velmora::sdk::integration::toolkit
