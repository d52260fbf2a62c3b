// Exporting from a widget application whose window system has no OpenGL; run on such a platform.

#include "integration/services/OffscreenImageService.h"
#include "integration/toolkit/GuiClient.h"
#include "integration/toolkit/PixelBuffer.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(WithoutOpenGL, AWidgetApplicationIsAGuiClientWithoutPixelBuffers)
{
    EXPECT_TRUE(toolkit::isGuiClient());
    EXPECT_FALSE(toolkit::hasPixelBuffers());
}

TEST(WithoutOpenGL, TheHiddenWidgetCannotRenderAndNoRowCanBeRead)
{
    services::OffscreenImageService service;
    OffscreenImageInterface* const image = service.imageCreate(16, 16, ImageRenderingStrategy_Hardware);
    EXPECT_FALSE(image->render(ExportRegion_Page));
    unsigned char plane[16];
    EXPECT_FALSE(service.imageGetRGBRow(image, 0, plane, plane, plane));
    service.imageDestroy(image);
}

TEST(WithoutOpenGL, SoftwareDraws)
{
    services::OffscreenImageService service;
    auto image = createImage(ImageKind::Software, 61, 43);
    EXPECT_TRUE(renderImage(ImageKind::Software, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
    EXPECT_EQ(readRows(service, *image), tiles(61, 43));
    service.imageDestroy(image.release());
}

} // namespace
} // namespace velmora::test
