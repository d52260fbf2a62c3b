// Exporting from a widget application that shows nothing, on the platform that borrows the X server's
// OpenGL; run on that platform.

#include "integration/services/OffscreenImageService.h"
#include "integration/toolkit/GuiClient.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(WithoutWindows, AWidgetApplicationWithOpenGLIsAGuiClient)
{
    EXPECT_TRUE(toolkit::isGuiClient());
}

TEST(WithoutWindows, EveryKindOfImageDraws)
{
    for (const ImageKind kind : drawnKinds()) {
        services::OffscreenImageService service;
        auto image = createImage(kind, 61, 43);
        EXPECT_TRUE(renderImage(kind, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(readRows(service, *image), tiles(61, 43)) << nameOf(kind);
        service.imageDestroy(image.release());
    }
}

} // namespace
} // namespace velmora::test
