#pragma once

#include "engine/gl/GLFunctions.h"

namespace velmora::engine {

/// The colours of the height bands as a texture of the current context, bound for as long as this
/// lives; one texel a band, so that the borders are sharp at any size.
class BandTexture {
public:
    BandTexture(const GLFunctions& gl, int bands);
    ~BandTexture();
    BandTexture(const BandTexture&) = delete;
    BandTexture& operator=(const BandTexture&) = delete;

private:
    const GLFunctions& m_gl;
    GLuint m_texture = 0;
};

} // namespace velmora::engine
