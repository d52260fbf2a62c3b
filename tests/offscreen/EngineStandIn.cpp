#include "tests/offscreen/EngineStandIn.h"

#include "engine/VelEng.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

namespace velmora::test {

namespace {

Drawing& currentDrawing()
{
    static Drawing drawing;
    return drawing;
}

} // namespace

EngineDraws::EngineDraws(Drawing drawing) : m_previous(std::move(currentDrawing()))
{
    currentDrawing() = std::move(drawing);
}

EngineDraws::~EngineDraws()
{
    currentDrawing() = std::move(m_previous);
}

const GLTable& glOf(ImageKind kind)
{
    if (kind == ImageKind::Software)
        return softwareGL();
    return isOfEgl(kind) ? eglGL() : screenGL();
}

bool renderImage(ImageKind kind, sdk::integration::OffscreenImageInterface& image,
                 const std::function<void(const GLTable&, int, int)>& draw)
{
    const EngineDraws drawing([&](sdk::integration::ExportRegion_e, sdk::integration::OffscreenImageInterface& target) {
        if (!target.getGLContext().setCurrentGL())
            return 0;
        draw(glOf(kind), target.width(), target.height());
        target.getGLContext().swapBuffers();
        return target.getGLContext().clearCurrentGL() ? 1 : 0;
    });
    return image.render(sdk::integration::ExportRegion_Page);
}

} // namespace velmora::test

// A program's own definition comes before the one of the engine's library.
extern "C" int VelEngRenderOffscreenImage(velmora::sdk::integration::ExportRegion_e region,
                                          velmora::sdk::integration::OffscreenImageInterface* image)
{
    const velmora::test::Drawing& drawing = velmora::test::currentDrawing();
    return drawing ? drawing(region, *image) : 0;
}
