#pragma once

namespace velmora::test {

/// Binds a new framebuffer object of this size, which lasts as long as the context that is current.
void bindNewFramebuffer(int width, int height);

} // namespace velmora::test
