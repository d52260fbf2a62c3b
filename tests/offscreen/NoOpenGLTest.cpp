// A widget application without a window system and without OpenGL; run on such a platform.

#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ImageKinds.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(WithoutOpenGL, AHiddenWidgetCannotRenderAndNoRowCanBeRead)
{
    services::OffscreenImageService service;
    auto image = createImage(ImageKind::Pixmap, 16, 16);
    EXPECT_FALSE(image->render(ExportRegion_Page));
    unsigned char plane[16];
    EXPECT_FALSE(service.imageGetRGBRow(image.get(), 0, plane, plane, plane));
    service.imageDestroy(image.release());
}

} // namespace
} // namespace velmora::test
