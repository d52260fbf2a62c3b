// What holds in every application without OpenGL: with widgets but no window system, or with neither.

#include "exception/ExceptionBase.h"
#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/services/OffscreenImageService.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/PixelBuffer.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(WithoutHardware, AnApplicationIsNoGuiClientAndHasNoPixelBuffers)
{
    EXPECT_FALSE(toolkit::isGuiClient());
    EXPECT_FALSE(toolkit::hasPixelBuffers());
}

TEST(WithoutHardware, ThereIsNoHardwareImageButThatOfEgl)
{
    services::OffscreenImageService service;
    OffscreenImageInterface* const image = service.imageCreate(16, 16, ImageRenderingStrategy_Hardware);
    EXPECT_NE(image, nullptr);
    service.imageDestroy(image);
    try {
        intern::ImageSurroundings withoutEgl = intern::toolkitSurroundings();
        withoutEgl.hasEgl = [] { return false; };
        intern::chooseOffscreenImage(16, 16, ImageRenderingStrategy_Hardware, withoutEgl);
        FAIL() << "an image was created";
    } catch (const ExceptionBase& exception) {
        EXPECT_STREQ(exception.what(), "Failed to create an offscreen image.");
    }
}

TEST(WithoutHardware, EveryKindThatNeedsNoneDraws)
{
    services::OffscreenImageService service;
    for (const ImageKind kind : kindsWithoutDisplay()) {
        auto image = createImage(kind, 61, 43);
        EXPECT_TRUE(renderImage(kind, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(readRows(service, *image), tiles(61, 43)) << nameOf(kind);
        service.imageDestroy(image.release());
    }
}

} // namespace
} // namespace velmora::test
