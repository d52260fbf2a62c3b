#pragma once

class QSize;

namespace velmora::sdk::integration::toolkit {

/// Whether the toolkit can draw off-screen with OpenGL at this size. False for an empty size and
/// where there is no OpenGL at all. To be asked first: some drivers do not survive a size far over
/// their limits, and for an empty one the toolkit takes another size. Widget applications only. The context
/// that is current stays current.
bool canDrawOffscreen(const QSize& size);

/// The largest size for the above, empty where there is no OpenGL. Costs a context of its own each time.
QSize largestOffscreenSize();

} // namespace velmora::sdk::integration::toolkit
