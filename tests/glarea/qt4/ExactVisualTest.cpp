// The toolkit takes the very visual that is chosen.
#include "integration/StyleSettings.h"
#include "integration/glarea/VisualList.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/ToolkitWindows.h"
#include "tests/support/Wait.h"
#include "toolbox/StyleValue.h"

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

using namespace velmora::sdk::integration;
using namespace velmora::test;

TEST_F(DrawArea, ItsWindowHasTheChosenVisual)
{
    const velmora::toolbox::StyleValue section("Interface", "OpenGLConfig");
    writeStyleInteger(section, "UseAdvancedVisualChooser", 1);
    GLDrawArea area;
    ASSERT_TRUE(showAndWait(area));
    XWindowAttributes attributes;
    ASSERT_NE(XGetWindowAttributes(toolkitDisplay(), area.winId(), &attributes), 0);
    EXPECT_EQ(static_cast<int>(XVisualIDFromVisual(attributes.visual)), readStyleInteger(section, "VisualID"));
    writeStyleInteger(section, "UseAdvancedVisualChooser", 0);
    writeStyleInteger(section, "VisualID", 0);
}
