#include "tests/platform/page/SoftwareSurface.h"

#include <GL/gl.h>

namespace velmora::test {

std::ostream& operator<<(std::ostream& out, const Pixel& pixel)
{
    return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ')';
}

SoftwareSurface::SoftwareSurface(int width, int height)
    : m_width(width), m_height(height), m_context(SoftwareContext::create())
{}

void SoftwareSurface::swapBuffers()
{
    ++swaps;
}

bool SoftwareSurface::setCurrentGL()
{
    m_changed = true;
    return worksAtAll && m_context->makeCurrent(m_width, m_height);
}

void SoftwareSurface::resize(int width, int height)
{
    m_width = width;
    m_height = height;
    m_changed = true;
}

void SoftwareSurface::spoil()
{
    m_context->makeCurrent(m_width, m_height);
    m_context->fill(0x77);
    m_changed = true;
}

int SoftwareSurface::countBuffers()
{
    setCurrentGL();
    const auto isBuffer = m_context->function<GLboolean(GLuint)>("glIsBuffer");
    constexpr GLuint MostNames = 1000;
    int found = 0;
    for (GLuint name = 1; name < MostNames; ++name)
        found += isBuffer(name);
    return found;
}

const std::vector<unsigned char>& SoftwareSurface::bytes() const
{
    if (m_changed) {
        m_context->makeCurrent(m_width, m_height);
        m_context->read(m_width, m_height, m_bytes);
        m_changed = false;
    }
    return m_bytes;
}

Pixel SoftwareSurface::at(int x, int yFromBottom) const
{
    const std::size_t row = static_cast<std::size_t>(yFromBottom) * static_cast<std::size_t>(m_width);
    const std::size_t i = (row + static_cast<std::size_t>(x)) * 4;
    return {bytes().at(i), bytes().at(i + 1), bytes().at(i + 2)};
}

int SoftwareSurface::countOther(const Pixel& colour) const
{
    int count = 0;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            count += at(x, y) != colour ? 1 : 0;
    return count;
}

} // namespace velmora::test
