// The drawing area on an X server without GLX, where the toolkit draws through EGL.

#include "integration/StyleSettings.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/glarea/VisualList.h"
#include "integration/toolkit/ContextFacts.h"
#include "integration/toolkit/XDisplay.h"
#include "tests/faults/XServer.h"
#include "tests/support/Wait.h"
#include "toolbox/StyleValue.h"

#include <QApplication>
#include <gtest/gtest.h>

using namespace velmora::sdk::integration;
using velmora::toolbox::StyleValue;

TEST(WithoutGlx, TheToolkitChoosesAndNothingIsWritten)
{
    const StyleValue section("Interface", "OpenGLConfig");
    writeStyleInteger(section, "UseAdvancedVisualChooser", 1);
    ASSERT_NE(toolkit::xDisplay(), nullptr);
    EXPECT_TRUE(VisualList().isEmpty());
    GLDrawArea area(nullptr);
    EXPECT_EQ(readStyleInteger(section, "VisualID", -1), 0);
}

TEST(WithoutGlx, TheDrawingAreaHasADepthBuffer)
{
    GLDrawArea area(nullptr);
    ASSERT_TRUE(velmora::test::showAndWait(area));
    area.makeCurrent();
    GLint bits = 0;
    glGetIntegerv(GL_DEPTH_BITS, &bits);
    EXPECT_GE(bits, 16);
    EXPECT_TRUE(toolkit::factsOf(area.format()).hasDepth);
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const velmora::test::XServer server(QStringList() << "-extension"
                                                      << "GLX");
    qputenv("DISPLAY", server.name().toLatin1());
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
