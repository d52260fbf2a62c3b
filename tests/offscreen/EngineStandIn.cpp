#include "tests/offscreen/EngineStandIn.h"

#include "engine/VelEng.h"
#include "integration/StyleSettings.h"
#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <vector>

namespace velmora::test {

namespace {

Drawing& currentDrawing()
{
    static Drawing drawing;
    return drawing;
}

const toolbox::StyleValue& imageRendering()
{
    static const toolbox::StyleValue section("Interface", "OpenGLConfig", "ImageRendering");
    return section;
}

void write(const char* key, int value)
{
    std::vector<long> ids;
    toolbox::StyleValue::initMacroIDsfromStyleValueNames(ids, key);
    toolbox::ArgList args;
    imageRendering().setupSetValueArgList(ids, nullptr, -1, -1, 255, args);
    args.appendArbParam("IValue", value);
    args.appendDouble("DValue", value);
    toolbox::StyleValue::styleSetLowLevel(args);
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

ImageSetting::ImageSetting(const char* key, int value)
    : m_key(key), m_previous(sdk::integration::readStyleInteger(imageRendering(), key))
{
    write(key, value);
}

ImageSetting::~ImageSetting()
{
    write(m_key, m_previous);
}

} // namespace velmora::test

// A program's own definition comes before the one of the engine's library.
extern "C" int VelEngRenderOffscreenImage(velmora::sdk::integration::ExportRegion_e region,
                                          velmora::sdk::integration::OffscreenImageInterface* image)
{
    const velmora::test::Drawing& drawing = velmora::test::currentDrawing();
    return drawing ? drawing(region, *image) : 0;
}
