#include "integration/offscreen/OffscreenImageMesa.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/offscreen/PixelRows.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/LargeImage.h"
#include "toolbox/StyleValue.h"

#include <GL/osmesa.h>
#include <string>

namespace velmora::sdk::integration::intern {

namespace {

// What a depth that is not set counts as, as in the choice of a visual: the most that OSMesa has.
constexpr int DefaultDepthSize = 32;

std::string sizeText(int width, int height)
{
    return std::to_string(width) + "x" + std::to_string(height);
}

void checkSize(int width, int height)
{
    GLint maxWidth = 0;
    GLint maxHeight = 0;
    OSMesaGetIntegerv(OSMESA_MAX_WIDTH, &maxWidth);
    OSMesaGetIntegerv(OSMESA_MAX_HEIGHT, &maxHeight);
    if (width > maxWidth || height > maxHeight)
        throw ExceptionBase("The off-screen image size " + sizeText(width, height) +
                                " exceeds the maximum allowed image size of " + sizeText(maxWidth, maxHeight) +
                                ". Try reducing the image size or supersampling to allow exporting to succeed.",
                            false);
    // An empty image is harmless; the memory of a negative one cannot be counted.
    if (width < 0 || height < 0)
        throw ExceptionBase("The off-screen image size " + sizeText(width, height) + " is negative.", false);
}

OSMesaContext createContext()
{
    const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    int depthBits = readStyleInteger(section, "DepthBufferSize");
    const int accumBits = readStyleInteger(section, "MaxAccumBufferSize");
    if (depthBits == 0)
        depthBits = DefaultDepthSize;
    return OSMesaCreateContextExt(GL_RGBA, depthBits, 0, accumBits, nullptr);
}

} // namespace

OffscreenImageMesa::OffscreenImageMesa(int width, int height) : m_width(width), m_height(height), m_glContext(*this)
{
    checkSize(width, height);
    const int pixels = width * height; // below the maximum it fits
    m_buffer = std::make_unique<std::uint32_t[]>(static_cast<std::size_t>(pixels));
    m_context = createContext();
}

OffscreenImageMesa::~OffscreenImageMesa()
{
    // OSMesa makes the context current to destroy it, so the toolkit's must be out of the way.
    const toolkit::CurrentContextKeeper keeper;
    toolkit::releaseCurrentContext();
    OSMesaDestroyContext(m_context);
}

bool OffscreenImageMesa::render(ExportRegion_e region)
{
    // Any answer but 0 counts, unlike for the pixel buffer. Deliberate.
    return VelEngRenderOffscreenImage(region, this) != 0;
}

QImage OffscreenImageMesa::toImage()
{
    QImage image = toolkit::newLargeImage(m_width, m_height, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const PixelRows& rows = pixelRows();
    for (int y = 0; y < m_height; ++y) {
        const std::uint32_t* const source = m_buffer.get() + static_cast<std::ptrdiff_t>(m_height - 1 - y) * m_width;
        rows.fromRgbaBytes(source, m_width, reinterpret_cast<std::uint32_t*>(image.scanLine(y)));
    }
    return image;
}

bool OffscreenImageMesa::GLContext::setCurrentGL()
{
    toolkit::releaseCurrentContext();
    return OSMesaMakeCurrent(m_image.m_context, m_image.m_buffer.get(), GL_UNSIGNED_BYTE, m_image.m_width,
                             m_image.m_height) != GL_FALSE;
}

} // namespace velmora::sdk::integration::intern
