#include "tests/platform/plot/Picture.h"

#include "engine/gl/GLFunctions.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace velmora::engine::test {

bool CountingCheckpoint::goOn(double fraction)
{
    isMonotonous = isMonotonous && fraction >= lastFraction && fraction <= 1;
    lastFraction = fraction;
    return ++questions != stopAt;
}

bool Picture::Pixel::isNear(int r, int g, int b, int tolerance) const
{
    return std::abs(red - r) <= tolerance && std::abs(green - g) <= tolerance && std::abs(blue - b) <= tolerance;
}

Picture::Picture(int width, int height)
    : m_width(width), m_height(height), m_context(velmora::test::SoftwareContext::create())
{
    if (!m_context->makeCurrent(width, height))
        throw std::runtime_error("The software context cannot be made current.");
    clear();
}

Picture::~Picture()
{
    m_context->release();
}

void Picture::clear()
{
    const GLFunctions& gl = currentGL();
    gl.ClearColor(1, 1, 1, 1);
    gl.Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    refresh();
}

Drawing Picture::drawing() const
{
    Drawing drawing;
    drawing.targetWidth = m_width;
    drawing.targetHeight = m_height;
    drawing.frameWidth = m_width;
    drawing.frameHeight = m_height;
    return drawing;
}

bool Picture::draw(Content& plot, Checkpoint& checkpoint)
{
    const bool done = plot.draw(drawing(), checkpoint);
    refresh();
    return done;
}

bool Picture::draw(Content& plot)
{
    CountingCheckpoint checkpoint;
    return draw(plot, checkpoint);
}

Picture::Pixel Picture::at(int x, int yFromBottom) const
{
    const unsigned char* pixel = &m_bytes[(static_cast<std::size_t>(yFromBottom) * static_cast<std::size_t>(m_width) +
                                           static_cast<std::size_t>(x)) *
                                          4];
    return {pixel[0], pixel[1], pixel[2]};
}

std::size_t Picture::countNear(int r, int g, int b, int tolerance) const
{
    std::size_t count = 0;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            count += at(x, y).isNear(r, g, b, tolerance) ? 1 : 0;
    return count;
}

std::size_t Picture::countInk() const
{
    return static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height) - countNear(255, 255, 255, 0);
}

double Picture::meanInk() const
{
    double sum = 0;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const Pixel pixel = at(x, y);
            sum += 1 - (pixel.red + pixel.green + pixel.blue) / 765.0;
        }
    return sum / (static_cast<double>(m_width) * m_height);
}

void Picture::write(const std::string& fileName) const
{
    std::ofstream file(fileName, std::ios::binary);
    file << "P6\n" << m_width << ' ' << m_height << "\n255\n";
    for (int y = m_height - 1; y >= 0; --y)
        for (int x = 0; x < m_width; ++x) {
            const Pixel pixel = at(x, y);
            file.put(static_cast<char>(pixel.red))
                .put(static_cast<char>(pixel.green))
                .put(static_cast<char>(pixel.blue));
        }
}

} // namespace velmora::engine::test
