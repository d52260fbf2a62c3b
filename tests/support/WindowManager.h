#pragma once

namespace velmora::test {

/// Whether there is a display and a window manager runs on it.
bool hasWindowManager();

/// Waits until the window manager has worked off what the X server told it before, at most 30 seconds;
/// whether it has. The toolkit processes no events meanwhile, but what it has sent reaches the server
/// first, and what the server has sent waits in the toolkit.
bool waitForWindowManager();

} // namespace velmora::test
