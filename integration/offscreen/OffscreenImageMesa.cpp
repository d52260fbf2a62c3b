#include "integration/offscreen/OffscreenImageMesa.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/offscreen/EveryContext.h"
#include "integration/offscreen/ImageSizeText.h"
#include "integration/offscreen/PixelRows.h"
#include "integration/opengl/ReadingGL.h"
#include "toolbox/StyleValue.h"

namespace velmora::sdk::integration::intern {

namespace {

// What a depth that is not set counts as, as in the choice of a visual: the most that OSMesa has.
constexpr int DefaultDepthSize = 32;

void checkSize(const OSMesaLibrary& library, int width, int height)
{
    int maxWidth = 0;
    int maxHeight = 0;
    library.getIntegerv(OSMesaLibrary::MaxWidth, &maxWidth);
    library.getIntegerv(OSMesaLibrary::MaxHeight, &maxHeight);
    if (width > maxWidth || height > maxHeight)
        throw ExceptionBase(sizeExceedsText(width, height, maxWidth, maxHeight), false);
    // An empty image is harmless; the memory of a negative one cannot be counted.
    if (width < 0 || height < 0)
        throw ExceptionBase(sizeIsNegativeText(width, height), false);
}

ReadingGL::EntryPoint entryPoint(const char* name)
{
    return osMesa()->getProcAddress(name);
}

} // namespace

OffscreenImageMesa::OffscreenImageMesa(const OSMesaLibrary& library, int width, int height)
    : m_library(library), m_width(width), m_height(height), m_glContext(*this)
{
    checkSize(library, width, height);
    const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    const int depthBits = readStyleInteger(section, "DepthBufferSize");
    const int accumBits = readStyleInteger(section, "MaxAccumBufferSize");
    m_buffer.emplace(width, height);
    m_context = library.createContextExt(GL_RGBA, depthBits == 0 ? DefaultDepthSize : depthBits, 0, accumBits, nullptr);
}

OffscreenImageMesa::~OffscreenImageMesa()
{
    // OSMesa makes the context current to destroy it, so whatever is current must be out of the way.
    const EveryContextKeeper keeper;
    releaseEveryContext();
    m_library.destroyContext(m_context);
}

bool OffscreenImageMesa::render(ExportRegion_e region)
{
    m_wasCurrent = false;
    // Any answer but 0 counts, unlike for the pixel buffer. Deliberate.
    const bool rendered = VelEngRenderOffscreenImage(region, this) != 0;
    m_unfinished = m_wasCurrent && !finishDrawing();
    return rendered && !m_unfinished;
}

// OSMesa draws into memory of its own and hands the pixels over when it is asked to finish. The engine need
// not have asked, and may have left another context current.
bool OffscreenImageMesa::finishDrawing()
{
    const EveryContextKeeper keeper;
    if (!m_glContext.setCurrentGL())
        return false;
    static const ReadingGL gl(entryPoint);
    gl.forgetErrors();
    if (!gl.answers())
        return false;
    gl.Finish();
    return gl.succeeded();
}

QImage OffscreenImageMesa::toImage()
{
    if (m_unfinished)
        return QImage();
    std::uint32_t* pixels = m_picture.pixelsFor(m_width, m_height);
    if (!pixels)
        return QImage();
    const PixelRows& rows = pixelRows();
    for (int y = 0; y < m_height; ++y, pixels += m_width) {
        const std::uint32_t* const source =
            m_buffer->pixels() + static_cast<std::ptrdiff_t>(m_height - 1 - y) * m_width;
        rows.fromRgbaBytes(source, m_width, pixels);
    }
    return m_picture.image();
}

bool OffscreenImageMesa::GLContext::setCurrentGL()
{
    releaseEveryContext();
    const bool current = m_image.m_library.makeCurrent(m_image.m_context, m_image.m_buffer->pixels(), GL_UNSIGNED_BYTE,
                                                       m_image.m_width, m_image.m_height) != GL_FALSE;
    m_image.m_wasCurrent = m_image.m_wasCurrent || current;
    return current;
}

} // namespace velmora::sdk::integration::intern
