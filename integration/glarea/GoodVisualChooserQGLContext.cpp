#include "integration/glarea/GoodVisualChooserQGLContext.h"

#include "base/AppLock.h"
#include "integration/StyleSettings.h"
#include "integration/glarea/VisualList.h"
#include "integration/toolkit/ContextFacts.h"
#include "toolbox/StyleValue.h"

#include <cstdio>

namespace velmora::sdk::integration {

namespace {

constexpr int DefaultDepthSize = 32;
constexpr int DefaultSamples = 4;
constexpr int DefaultAccumSize = 16;

int screenRendering(const char* key)
{
    return readStyleInteger(toolbox::StyleValue("Interface", "OpenGLConfig", "ScreenRendering"), key);
}

int openGLConfig(const char* key)
{
    return readStyleInteger(toolbox::StyleValue("Interface", "OpenGLConfig"), key);
}

int valueOrDefault(int value, int defaultValue)
{
    return value == 0 ? defaultValue : value;
}

toolkit::ContextFormat configuredFormat()
{
    toolkit::FormatRequest request;
    request.depthSize = screenRendering("DepthBufferSize");
    request.samples = screenRendering("MaxMultiSamples");
    request.accumSize = screenRendering("MaxAccumBufferSize");
    return toolkit::screenFormat(request);
}

toolkit::OwnedVisual chooseAdvanced()
{
    VisualRequest request;
    request.depthSize = valueOrDefault(screenRendering("DepthBufferSize"), DefaultDepthSize);
    request.samples = valueOrDefault(screenRendering("MaxMultiSamples"), DefaultSamples);
    request.accumSize = valueOrDefault(screenRendering("MaxAccumBufferSize"), DefaultAccumSize);

    const VisualList visuals;
    if (visuals.isEmpty())
        return nullptr;
    const int configured = openGLConfig("VisualID");
    return VisualList::find(configured != 0 ? static_cast<unsigned long>(configured) : visuals.best(request));
}

// The choice becomes the configured one, so that the contexts after this one need not rank again.
void rememberChoice(unsigned long visualId)
{
    const AppLock lock(AppLock::ImplicitMacroRecording::On);
    writeStyleInteger(toolbox::StyleValue("Interface", "OpenGLConfig"), "VisualID", static_cast<int>(visualId));
    const bool printDebug = (readStyleInteger(toolbox::StyleValue("Interface"), "PrintDebug") & 0xff) != 0;
    // The second column deliberately repeats the ID in decimal; it is not the GLX level.
    if (printDebug)
        std::fprintf(stderr, "Visual ID : 0x%02x, lvl: %02d\n", static_cast<unsigned>(visualId),
                     static_cast<int>(visualId));
}

} // namespace

GoodVisualChooserQGLContext::GoodVisualChooserQGLContext() : VisualChoosingContext(configuredFormat()) {}

void* GoodVisualChooserQGLContext::chooseVisual()
{
    if (toolkitMustChoose())
        return VisualChoosingContext::chooseVisual();
    const bool advanced = openGLConfig("UseAdvancedVisualChooser") != 0;
    toolkit::OwnedVisual chosen =
        advanced ? chooseAdvanced() : toolkit::OwnedVisual(VisualChoosingContext::chooseVisual());
    if (chosen)
        rememberChoice(VisualList::idOf(chosen.get()));
    return chosen.release();
}

} // namespace velmora::sdk::integration
