#pragma once

#include <memory>

// Declared as Xlib does, so that its macros stay out of this header.
typedef struct _XDisplay Display; // NOLINT(bugprone-reserved-identifier)

namespace velmora::sdk::integration::toolkit {

/// The toolkit's connection to the X server, or null when the toolkit does not run on X11.
Display* xDisplay();

/// The screen of the application.
int xScreen();

/// Frees what Xlib allocated.
struct FreeByXlib {
    void operator()(void* memory) const;
};

/// One visual, an `XVisualInfo*` behind a plain pointer: Xlib's macros stay out of headers.
using OwnedVisual = std::unique_ptr<void, FreeByXlib>;

} // namespace velmora::sdk::integration::toolkit
