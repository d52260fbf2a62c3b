#include "engine/plot/surface/BandTexture.h"

#include "engine/plot/Palette.h"

#include <vector>

namespace velmora::engine {

BandTexture::BandTexture(const GLFunctions& gl, int bands) : m_gl(gl)
{
    std::vector<Color> colors;
    colors.reserve(static_cast<std::size_t>(bands));
    for (int band = 0; band < bands; ++band)
        colors.push_back(heightColor(bands < 2 ? 0.5 : static_cast<double>(band) / (bands - 1)));
    gl.GenTextures(1, &m_texture);
    gl.BindTexture(GL_TEXTURE_2D, m_texture);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    gl.TexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    gl.TexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, bands, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, colors.data());
}

BandTexture::~BandTexture()
{
    m_gl.BindTexture(GL_TEXTURE_2D, 0);
    m_gl.DeleteTextures(1, &m_texture);
}

} // namespace velmora::engine
