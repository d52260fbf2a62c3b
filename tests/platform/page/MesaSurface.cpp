#include "tests/platform/page/MesaSurface.h"

#include <algorithm>
#include <stdexcept>

namespace velmora::test {
namespace {

std::size_t sizeInBytes(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Pixel& pixel)
{
    return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ')';
}

MesaSurface::MesaSurface(int width, int height)
    : m_width(width), m_height(height), m_bytes(sizeInBytes(width, height)),
      m_context(OSMesaCreateContextExt(GL_RGBA, 24, 8, 0, nullptr))
{
    if (!m_context)
        throw std::runtime_error("There is no software OpenGL context.");
}

MesaSurface::~MesaSurface()
{
    OSMesaDestroyContext(m_context);
}

void MesaSurface::swapBuffers()
{
    ++swaps;
    reinterpret_cast<void (*)()>(OSMesaGetProcAddress("glFinish"))();
}

bool MesaSurface::setCurrentGL()
{
    return worksAtAll && OSMesaMakeCurrent(m_context, m_bytes.data(), GL_UNSIGNED_BYTE, m_width, m_height) != 0;
}

void MesaSurface::resize(int width, int height)
{
    m_width = width;
    m_height = height;
    m_bytes.assign(sizeInBytes(width, height), 0);
}

void MesaSurface::spoil()
{
    std::fill(m_bytes.begin(), m_bytes.end(), static_cast<unsigned char>(0x77));
}

Pixel MesaSurface::at(int x, int yFromBottom) const
{
    const std::size_t i = sizeInBytes(m_width, yFromBottom) + static_cast<std::size_t>(x) * 4;
    return {m_bytes.at(i), m_bytes.at(i + 1), m_bytes.at(i + 2)};
}

int MesaSurface::countOther(const Pixel& colour) const
{
    int count = 0;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            count += at(x, y) != colour ? 1 : 0;
    return count;
}

} // namespace velmora::test
