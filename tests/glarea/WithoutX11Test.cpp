// The drawing area and the choice of its visual on a platform that has neither X11 nor OpenGL.

#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/glarea/GoodVisualChooserQGLContext.h"
#include "integration/glarea/VisualList.h"
#include "testing/EngineProbe.h"
#include "toolbox/StyleValue.h"

#include <QPointer>
#include <QWidget>
#include <gtest/gtest.h>
#include <string>

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;
using velmora::toolbox::StyleValue;

TEST(WithoutX11, TheChooserLeavesTheChoiceToTheToolkitAndWritesNothing)
{
    const StyleValue section("Interface", "OpenGLConfig");
    writeStyleInteger(section, "UseAdvancedVisualChooser", 1);
    EXPECT_TRUE(VisualList().isEmpty());
    GoodVisualChooserQGLContext context;
    EXPECT_EQ(context.chooseVisual(), nullptr);
    EXPECT_EQ(readStyleInteger(section, "VisualID", -1), 0);

    writeStyleInteger(section, "UseAdvancedVisualChooser", 0);
    EXPECT_EQ(context.chooseVisual(), nullptr);
    EXPECT_EQ(readStyleInteger(section, "VisualID", -1), 0);
}

TEST(WithoutOpenGL, CreatingADrawingAreaThrowsAndLeavesTheParentIntact)
{
    QWidget parent;
    EngineProbe::startLog();
    try {
        GLDrawArea area(&parent);
        FAIL() << "there is no OpenGL here";
    } catch (const velmora::ExceptionBase& error) {
        EXPECT_STREQ(error.what(), "Failed to create GLDrawArea.");
        EXPECT_FALSE(error.isLogged());
    }
    EXPECT_TRUE(parent.findChildren<QWidget*>().isEmpty());
    // Deliberately, the tracker and the observables are not released on this path.
    for (const std::string& entry : EngineProbe::log())
        EXPECT_NE(entry.front(), '~') << entry;
    EngineProbe::reset();
}
