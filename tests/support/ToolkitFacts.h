#pragma once

namespace velmora::test {

// What the tests expect of one toolkit and not of another.

/// Whether the toolkit runs elsewhere than on X11 with GLX: with EGL, or without a display.
bool hasPlatforms();

/// Whether the toolkit tells how many event loops run inside one another.
bool countsEventLoops();

/// Whether the event dispatcher delivers what is posted once more, before it tells that it is awake.
bool deliversPostedEventsBeforeWaking();

/// Whether a window can be activated as soon as it is shown, before the server has mapped it. Where it cannot, and no
/// window manager runs, nobody does it later.
bool activatesBeforeMapping();

/// A library that a process has loaded once the toolkit is about to show windows on an X server.
const char* libraryForX11();

} // namespace velmora::test
