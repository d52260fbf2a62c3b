// Exporting on a screen of 16 bits a pixel, where a pixmap has fewer colours than the drawing.

#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"

#include <QPixmap>
#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(OnAScreenOfFewColours, EveryKindOfImageArrivesAsNearToTheDrawingAsItsColoursAllow)
{
    ASSERT_EQ(QPixmap::defaultDepth(), 16);
    services::OffscreenImageService service;
    for (const ImageKind kind : drawnKinds()) {
        auto image = createImage(kind, 61, 43);
        EXPECT_TRUE(renderImage(kind, *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); }));
        EXPECT_EQ(differingFraction(readRows(service, *image), tiles(61, 43), kind == ImageKind::Pixmap ? 8 : 0), 0.0)
            << nameOf(kind);
        service.imageDestroy(image.release());
    }
}

} // namespace
} // namespace velmora::test
