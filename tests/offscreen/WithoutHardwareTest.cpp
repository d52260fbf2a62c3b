// What holds in every application without OpenGL: with widgets but no window system, or with neither.

#include "exception/ExceptionBase.h"
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

TEST(WithoutHardware, ThereIsNoHardwareImage)
{
    services::OffscreenImageService service;
    try {
        service.imageCreate(16, 16, ImageRenderingStrategy_Hardware);
        FAIL() << "an image was created";
    } catch (const ExceptionBase& exception) {
        EXPECT_STREQ(exception.what(), "Failed to create an offscreen image.");
    }
}

TEST(WithoutHardware, SoftwareDraws)
{
    services::OffscreenImageService service;
    auto image = createImage(ImageKind::Software, 61, 43);
    EXPECT_TRUE(renderImage(ImageKind::Software, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
    EXPECT_EQ(readRows(service, *image), tiles(61, 43));
    service.imageDestroy(image.release());
}

} // namespace
} // namespace velmora::test
