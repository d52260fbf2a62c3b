#include "integration/offscreen/OffscreenImageChoice.h"

#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/offscreen/OffscreenImageEgl.h"
#include "integration/offscreen/OffscreenImageMesa.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/offscreen/OffscreenImagePixmap.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/PixelBuffer.h"
#include "toolbox/StyleValue.h"

#include <algorithm>
#include <vector>

namespace velmora::sdk::integration::intern {

namespace {

using Image = std::unique_ptr<OffscreenImageInterface>;
using Surroundings = const ImageSurroundings&;

enum class By { Hardware, Software };

/// The image when it came out, else null.
template <typename Kind, typename... Arguments>
Image validImage(Arguments... arguments)
{
    auto image = std::make_unique<Kind>(arguments...);
    return image->isValid() ? Image(std::move(image)) : nullptr;
}

/// A kind of image.
struct Rung {
    By by;
    bool isEgl;
    bool (*isAvailable)(Surroundings);
    Image (*create)(int width, int height); ///< null: the next one
};

// From the first choice to the last.
const Rung Ladder[] = {
    {By::Hardware, false, [](Surroundings around) { return around.hasPixelBuffers(); },
     [](int width, int height) { return validImage<OffscreenImagePBuffer>(width, height); }},
    {By::Hardware, false, [](Surroundings around) { return around.isGuiClient(); },
     [](int width, int height) { return Image(std::make_unique<OffscreenImagePixmap>(width, height)); }},
    {By::Hardware, true, [](Surroundings around) { return around.hasEgl(); },
     [](int width, int height) { return validImage<OffscreenImageEgl>(width, height, EglRenderer::Any); }},
    {By::Software, false, [](Surroundings around) { return around.hasOSMesa(); },
     [](int width, int height) { return Image(std::make_unique<OffscreenImageMesa>(*osMesa(), width, height)); }},
    {By::Software, true, [](Surroundings around) { return around.hasEgl(); },
     [](int width, int height) { return validImage<OffscreenImageEgl>(width, height, EglRenderer::Software); }},
};

bool prefersEgl()
{
    return readStyleInteger(toolbox::StyleValue("Interface", "OpenGLConfig", "ImageRendering"), "PreferEGL") != 0;
}

std::vector<Rung> ladderFor(ImageRenderingStrategy_e strategy)
{
    const By by = strategy == 1 ? By::Hardware : By::Software;
    std::vector<Rung> rungs;
    std::copy_if(std::begin(Ladder), std::end(Ladder), std::back_inserter(rungs),
                 [by](const Rung& rung) { return rung.by == by; });
    if (prefersEgl())
        std::stable_partition(rungs.begin(), rungs.end(), [](const Rung& rung) { return rung.isEgl; });
    return rungs;
}

} // namespace

bool hasOSMesa()
{
    return osMesa() != nullptr;
}

bool hasEgl()
{
    return egl() != nullptr;
}

ImageSurroundings toolkitSurroundings()
{
    return {toolkit::hasPixelBuffers, toolkit::isGuiClient};
}

std::unique_ptr<OffscreenImageInterface> chooseOffscreenImage(int width, int height, ImageRenderingStrategy_e strategy,
                                                              const ImageSurroundings& surroundings)
{
    for (const Rung& rung : ladderFor(strategy))
        if (rung.isAvailable(surroundings))
            if (Image image = rung.create(width, height))
                return image;
    throw ExceptionBase("Failed to create an offscreen image.", false);
}

} // namespace velmora::sdk::integration::intern
