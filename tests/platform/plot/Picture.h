#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/plot/DrawingMeans.h"
#include "engine/plot/Plot.h"
#include "tests/support/SoftwareContext.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmora::engine::test {

/// Counts the questions, and stops at the one it is told.
class CountingCheckpoint : public Checkpoint {
public:
    virtual ~CountingCheckpoint() = default;
    bool goOn(double fraction) override;

    long questions = 0;
    long stopAt = -1;
    double lastFraction = 0;
    bool isMonotonous = true;
};

/// A software OpenGL context of its own with white ground, current from its creation on.
class Picture {
public:
    Picture(int width, int height);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    struct Pixel {
        int red;
        int green;
        int blue;
        bool isWhite() const { return red == 255 && green == 255 && blue == 255; }
        bool isNear(int r, int g, int b, int tolerance) const;
    };

    int width() const { return m_width; }
    int height() const { return m_height; }
    void clear();
    /// After drawing that did not go through draw(), before the pixels are looked at.
    void refresh() { m_context->read(m_width, m_height, m_bytes); }
    /// The frame is the whole picture; `pixelsPerPoint` 1.
    Drawing drawing() const;
    bool draw(Content& plot, Checkpoint& checkpoint);
    bool draw(Content& plot);
    Pixel at(int x, int yFromBottom) const;
    std::size_t countNear(int r, int g, int b, int tolerance) const;
    std::size_t countInk() const; ///< pixels that are not white
    double meanInk() const;       ///< 0 all white, 1 all black
    const std::vector<unsigned char>& bytes() const { return m_bytes; }
    /// For looking at it: a PPM file.
    void write(const std::string& fileName) const;

private:
    int m_width;
    int m_height;
    std::vector<unsigned char> m_bytes; ///< RGBA from the bottom
    std::unique_ptr<velmora::test::SoftwareContext> m_context;
};

} // namespace velmora::engine::test
