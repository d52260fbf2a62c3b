#pragma once

#include "interfaces/GLContextInterface.h"
#include "tests/support/SoftwareContext.h"

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

/// A software OpenGL context with a framebuffer of its own: the surface behind the areas and images of
/// these tests. Looking at its pixels makes its context current.
class SoftwareSurface : public sdk::integration::GLContextInterface {
public:
    SoftwareSurface(int width, int height);
    ~SoftwareSurface() override = default;
    SoftwareSurface(const SoftwareSurface&) = delete;
    SoftwareSurface& operator=(const SoftwareSurface&) = delete;

    void swapBuffers() override;
    bool setCurrentGL() override;
    bool clearCurrentGL() override { return true; }

    int width() const { return m_width; }
    int height() const { return m_height; }
    /// Another size; its content is lost, the context stays.
    void resize(int width, int height);
    /// Fills the framebuffer, as if another window had lain over it.
    void spoil();
    Pixel at(int x, int yFromBottom) const;
    /// How many pixels are not of this colour.
    int countOther(const Pixel& colour) const;
    /// How many buffer objects its context has.
    int countBuffers();
    /// RGBA from the bottom.
    const std::vector<unsigned char>& bytes() const;

    bool worksAtAll = true; ///< whether setCurrentGL succeeds
    int swaps = 0;

private:
    int m_width;
    int m_height;
    std::unique_ptr<SoftwareContext> m_context;
    mutable std::vector<unsigned char> m_bytes; ///< as it was when somebody last looked
    mutable bool m_changed = true;              ///< since then, perhaps
};

} // namespace velmora::test
