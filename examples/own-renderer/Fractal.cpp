// A renderer of one's own: the Mandelbrot set, smoothed, which takes seconds. It is a module for hosts that load such:
//   viewer --content ./libvelmora_fractal.so seahorse.fractal
// A host that makes its contents itself writes   velmora::content::show(std::make_shared<Fractal>());

#include "engine/VelContent.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

using namespace velmora;

constexpr int MostSteps = 600;
constexpr int BlocksOfAPortion = 64; // at most two milliseconds of work

/// How many steps the sequence of a point takes to leave; MostSteps when it stays.
int stepsAt(double x, double y)
{
    double re = 0;
    double im = 0;
    int steps = 0;
    for (; steps < MostSteps && re * re + im * im < 4; ++steps) {
        const double next = re * re - im * im + x;
        im = 2 * re * im + y;
        re = next;
    }
    return steps;
}

class Fractal final : public content::Content {
public:
    // ---- drawing: the only part that a renderer must have
    bool draw(const content::Drawing& drawing, content::Checkpoint& checkpoint) override
    {
        const content::StateGuard guard; // puts OpenGL's state back, however this ends
        const auto windowPos = reinterpret_cast<PFNGLWINDOWPOS2IPROC>(drawing.findFunction("glWindowPos2i"));
        const auto drawPixels = reinterpret_cast<decltype(&::glDrawPixels)>(drawing.findFunction("glDrawPixels"));
        const auto pixelZoom = reinterpret_cast<decltype(&::glPixelZoom)>(drawing.findFunction("glPixelZoom"));
        const int block = drawing.detail == content::Detail::Coarse ? 8 : 1; // pixels with one colour, each way
        pixelZoom(static_cast<GLfloat>(block), static_cast<GLfloat>(block));
        if (drawing.context != 0) // what the person sees
            m_aspect = drawing.frameHeight / drawing.frameWidth;
        // The frame may lie partly outside of the target, as in a tile.
        const int left = std::max(0, static_cast<int>(drawing.frameX));
        const int right = std::min(drawing.targetWidth, static_cast<int>(drawing.frameX + drawing.frameWidth));
        const int bottom = std::max(0, static_cast<int>(drawing.frameY));
        const int top = std::min(drawing.targetHeight, static_cast<int>(drawing.frameY + drawing.frameHeight));
        for (int y = bottom; y < top; y += block)
            for (int x = left; x < right; x += block * BlocksOfAPortion) {
                const int blocks = std::min(BlocksOfAPortion, (right - x + block - 1) / block);
                std::vector<GLubyte> colors;
                for (int i = 0; i < blocks; ++i)
                    addColor(colors, drawing, x + i * block, y, block);
                windowPos(x, y);
                drawPixels(blocks, 1, GL_RGB, GL_UNSIGNED_BYTE, colors.data());
                if (!checkpoint.goOn(static_cast<double>(y - bottom) / (top - bottom)))
                    return false; // the person wants something else
            }
        return true;
    }
    bool drawsCoarsely() const override { return true; }
    std::string description() const override { return "Mandelbrot set"; }

    // ---- the view
    void translate(double dx, double dy) override
    {
        m_x -= dx * m_width;
        m_y -= dy * m_width * m_aspect;
    }
    void zoom(double factor, double x, double y) override
    {
        m_x += (x - 0.5) * m_width * (1 - 1 / factor);
        m_y += (y - 0.5) * m_width * (1 - 1 / factor) * m_aspect;
        m_width /= factor;
    }
    void fit() override { setViewState("fractal -0.6 0 3.2"); }
    std::string viewState() const override
    {
        std::ostringstream text;
        text.precision(17);
        text << "fractal " << m_x << ' ' << m_y << ' ' << m_width;
        return text.str();
    }
    /// The word, the centre and the width; also what a file holds.
    bool setViewState(const std::string& state) override
    {
        std::istringstream text(state);
        std::string word;
        double x = 0, y = 0, width = 0;
        if (!(text >> word >> x >> y >> width) || word != "fractal" || !(width > 0))
            return false;
        m_x = x, m_y = y, m_width = width;
        return true;
    }

private:
    /// The colour of a block of pixels: of its middle, or the mean of 4 x 4 places in a single pixel.
    void addColor(std::vector<GLubyte>& colors, const content::Drawing& drawing, int x, int y, int block)
    {
        const int samples = block == 1 ? 4 : 1;
        const double aspect = drawing.frameHeight / drawing.frameWidth;
        double sum[3] = {0, 0, 0};
        for (int i = 0; i < samples * samples; ++i) {
            const double right =
                (x + block * (i % samples + 0.5) / samples - drawing.frameX) / drawing.frameWidth - 0.5;
            const double up = (y + block * (i / samples + 0.5) / samples - drawing.frameY) / drawing.frameHeight - 0.5;
            const int steps = stepsAt(m_x + right * m_width, m_y + up * m_width * aspect);
            for (int part = 0; part < 3 && steps < MostSteps; ++part)
                sum[part] += 127.5 * (1 + std::sin(std::sqrt(steps) + 1.1 + 0.8 * part));
        }
        for (const double part : sum)
            colors.push_back(static_cast<GLubyte>(part / (samples * samples)));
    }

    double m_x = -0.6; ///< of the centre
    double m_y = 0;
    double m_width = 3.2;
    double m_aspect = 0.75; ///< of the frame on the screen
};

class FractalReader final : public content::Reader {
public:
    bool recognises(const std::string&, const std::string& text) const override
    {
        return text.rfind("fractal", 0) == 0;
    }
    std::shared_ptr<content::Content> read(const std::string& fileName, content::Checkpoint&) override
    {
        std::ifstream file(fileName);
        std::string line;
        std::getline(file, line);
        auto fractal = std::make_shared<Fractal>();
        if (!fractal->setViewState(line))
            throw std::runtime_error(fileName + ": \"fractal\" needs a centre (x, y) and a width above 0 behind it.");
        return fractal;
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) const content::Module velmoraContentModule = {
    content::InterfaceVersion, []() -> std::unique_ptr<content::Reader> { return std::make_unique<FractalReader>(); }};
