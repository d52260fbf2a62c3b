// An area whose context the toolkit takes away.
#include "testing/EngineProbe.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

#include <QPaintEvent>

using namespace velmora::sdk::integration;
using namespace velmora::test;
using velmora::testing::EngineProbe;

TEST_F(DrawArea, WithoutAPageAndWithoutAContextTheToolkitDoesNotPaintButTheExposureFollows)
{
    EngineProbe::setPageTrackerState(0);
    ToolkitWatch area;
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    ASSERT_GT(area.paints, 0);
    const int draws = area.draws;
    area.removeStateListener(&painter); // it would draw
    int exposed = 0;
    area.connectDrawAreaExposed([&](bool) { ++exposed; });
    const_cast<toolkit::GLContext*>(area.context())->reset();
    ASSERT_FALSE(area.context()->isValid());
    QPaintEvent paint(area.rect());
    area.paintEvent(&paint);
    EXPECT_EQ(area.draws, draws);
    EXPECT_EQ(exposed, 1);
}
