#pragma once

namespace velmora::test {

/// Whether a pixel buffer of the toolkit is one of the window system, and not a framebuffer object.
bool pixelBuffersAreOfTheWindowSystem();

// What a toolkit cannot do or does not need, for tests that are skipped there: the reason, or null where it can.

/// Rendering a hidden widget into a pixmap.
const char* whyNoPixmapsAreDrawn();

/// Asking in a context of its own what can be drawn off screen.
const char* whyLimitsNeedNoContext();

} // namespace velmora::test
