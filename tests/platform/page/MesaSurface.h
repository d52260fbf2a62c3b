#pragma once

#include "interfaces/GLContextInterface.h"

#include <GL/osmesa.h>

#include <ostream>
#include <vector>

namespace velmora::test {

struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const Pixel& other) const { return red == other.red && green == other.green && blue == other.blue; }
    bool operator!=(const Pixel& other) const { return !(*this == other); }
};

constexpr Pixel White{255, 255, 255};

std::ostream& operator<<(std::ostream& out, const Pixel& pixel);

/// A software OpenGL context with a buffer of its own: the surface behind the areas and images of
/// these tests.
class MesaSurface : public sdk::integration::GLContextInterface {
public:
    MesaSurface(int width, int height);
    ~MesaSurface() override;
    MesaSurface(const MesaSurface&) = delete;
    MesaSurface& operator=(const MesaSurface&) = delete;

    void swapBuffers() override;
    bool setCurrentGL() override;
    bool clearCurrentGL() override { return true; }

    int width() const { return m_width; }
    int height() const { return m_height; }
    /// Another size; its content is lost, the context stays.
    void resize(int width, int height);
    /// Fills the buffer, as if another window had lain over it.
    void spoil();
    Pixel at(int x, int yFromBottom) const;
    /// How many pixels are not of this colour.
    int countOther(const Pixel& colour) const;
    const std::vector<unsigned char>& bytes() const { return m_bytes; }

    bool worksAtAll = true; ///< whether setCurrentGL succeeds
    int swaps = 0;

private:
    int m_width;
    int m_height;
    std::vector<unsigned char> m_bytes; ///< RGBA from the bottom
    OSMesaContext m_context;
};

} // namespace velmora::test
