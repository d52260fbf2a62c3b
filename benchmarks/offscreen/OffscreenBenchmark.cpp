// What reading an exported image back costs, in units of copying its bytes once. Build as Release
// and run on an X server: scripts/with-display bin/benchmark_offscreen [side in pixels]. Ends with 1
// when a limit is exceeded.

#include "benchmarks/support/Report.h"
#include "engine/VelEng.h"
#include "integration/StyleSettings.h"
#include "integration/offscreen/ExportableImageInterface.h"
#include "integration/opengl/OSMesaLibrary.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "toolbox/StyleValue.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

#include <GL/gl.h>

using namespace velmora::sdk::integration;
using velmora::benchmark::rounded;

namespace {

constexpr int Rounds = 7;
bool softwareIsDrawing = false;
int exceeded = 0;

template <typename Function>
Function softwareFunction(Function, const char* name)
{
    return reinterpret_cast<Function>(intern::osMesa()->getProcAddress(name));
}

void clearInSoftware()
{
    softwareFunction(&::glClearColor, "glClearColor")(0.2f, 0.4f, 0.6f, 1.0f);
    softwareFunction(&::glClear, "glClear")(GL_COLOR_BUFFER_BIT);
    softwareFunction(&::glFinish, "glFinish")();
}

void clearOnScreen()
{
    glClearColor(0.2f, 0.4f, 0.6f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glFinish();
}

/// The best of some rounds, in milliseconds.
double time(
    const std::function<void()>& work, const std::function<void()>& prepare = [] {})
{
    double best = 1e30;
    for (int round = 0; round < Rounds; ++round) {
        prepare();
        QElapsedTimer clock;
        clock.start();
        work();
        best = std::min(best, static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return best;
}

void reportRatio(const char* what, double milliseconds, double reference, double limit)
{
    const bool kept = velmora::benchmark::report(
        {what, milliseconds / reference, "×", limit, rounded(milliseconds, "ms") + " / " + rounded(reference, "ms")});
    exceeded += kept ? 0 : 1;
}

class Benchmark {
public:
    explicit Benchmark(int side)
        : m_side(side), m_copy(static_cast<std::size_t>(side) * static_cast<std::size_t>(side), 1),
          m_red(static_cast<std::size_t>(side)), m_green(m_red), m_blue(m_red)
    {
        const std::vector<unsigned> source(m_copy.size(), 2);
        m_memcpy = time([&] { std::memcpy(m_copy.data(), source.data(), source.size() * sizeof(unsigned)); });
    }

    void software()
    {
        if (!intern::osMesa()) {
            std::fprintf(stderr, "OSMesa is not installed and is left out.\n");
            return;
        }
        OffscreenImageInterface* const image = draw(ImageRenderingStrategy_Software);
        const double flipped = time([&] { flippedCopy(); });
        reportRatio("OSMesa image: toImage / flipped copy of the rows", time([&] { toImage(image); }), flipped, 1.5);
        const auto forget = [&] { m_service.imageDestroy(nullptr); };
        reportRatio("OSMesa image: read-back and rows / memcpy of its bytes", time([&] { readRows(image); }, forget),
                    m_memcpy, 4.0);
        reportRatio("imageGetRGBRow over the image / memcpy of its bytes", time([&] { readRows(image); }), m_memcpy,
                    1.5);
        m_service.imageDestroy(image);
    }

    void pixelBuffer() { readBackAndRows("pixel buffer: read-back and rows / memcpy of its bytes"); }

    void egl()
    {
        const velmora::toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
        writeStyleInteger(section, "PreferEGL", 1);
        readBackAndRows("EGL image: read-back and rows / memcpy of its bytes");
        writeStyleInteger(section, "PreferEGL", 0);
    }

private:
    void readBackAndRows(const char* what)
    {
        OffscreenImageInterface* const image = draw(ImageRenderingStrategy_Hardware);
        const auto forget = [&] { m_service.imageDestroy(nullptr); };
        reportRatio(what, time([&] { readRows(image); }, forget), m_memcpy, 4.0);
        m_service.imageDestroy(image);
    }

    OffscreenImageInterface* draw(ImageRenderingStrategy_e strategy)
    {
        softwareIsDrawing = strategy != ImageRenderingStrategy_Hardware;
        OffscreenImageInterface* const image = m_service.imageCreate(m_side, m_side, strategy);
        if (!image->render(ExportRegion_Page)) {
            std::fprintf(stderr, "The image could not be drawn; is there an X server with GLX?\n");
            std::exit(2);
        }
        return image;
    }

    QImage toImage(OffscreenImageInterface* image)
    {
        return dynamic_cast<intern::ExportableImageInterface&>(*image).toImage();
    }

    void flippedCopy()
    {
        QImage image(m_side, m_side, QImage::Format_RGB32);
        for (int y = 0; y < m_side; ++y)
            std::memcpy(image.scanLine(y), m_copy.data() + static_cast<std::ptrdiff_t>(m_side - 1 - y) * m_side,
                        static_cast<std::size_t>(m_side) * sizeof(unsigned));
    }

    void readRows(OffscreenImageInterface* image)
    {
        for (int y = 0; y < m_side; ++y)
            if (!m_service.imageGetRGBRow(image, y, m_red.data(), m_green.data(), m_blue.data()))
                std::exit(2);
    }

    services::OffscreenImageService m_service;
    int m_side;
    std::vector<unsigned> m_copy;
    std::vector<unsigned char> m_red, m_green, m_blue;
    double m_memcpy = 0.0;
};

} // namespace

// A program's own definition comes before the one of the engine's library.
extern "C" int VelEngRenderOffscreenImage(ExportRegion_e, OffscreenImageInterface* image)
{
    if (!image->getGLContext().setCurrentGL())
        return 0;
    softwareIsDrawing ? clearInSoftware() : clearOnScreen();
    return 1;
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int side = argc > 1 ? std::atoi(argv[1]) : 8192;
    Benchmark benchmark(side);
    benchmark.software();
    benchmark.pixelBuffer();
    benchmark.egl();
    return exceeded > 0 ? 1 : 0;
}
