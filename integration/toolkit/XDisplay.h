#pragma once

// Declared as Xlib does, so that its macros stay out of this header.
typedef struct _XDisplay Display; // NOLINT(bugprone-reserved-identifier)

namespace velmora::sdk::integration::toolkit {

/// The toolkit's connection to the X server, or null when the toolkit does not run on X11.
Display* xDisplay();

/// The screen of the application. Only with X11.
int xScreen();

} // namespace velmora::sdk::integration::toolkit
