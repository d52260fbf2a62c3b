#include "tests/offscreen/ImageSetting.h"

#include "integration/StyleSettings.h"
#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <vector>

namespace velmora::test {

namespace {

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
