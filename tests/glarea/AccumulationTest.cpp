// What the toolkit's contexts that have accumulation bits are asked for.
#include "integration/StyleSettings.h"
#include "integration/glarea/GoodVisualChooserQGLContext.h"
#include "toolbox/StyleValue.h"

#include <gtest/gtest.h>

using namespace velmora::sdk::integration;

TEST(Accumulation, IsAskedForWhenItsConfiguredSizeIsAboveZero)
{
    const velmora::toolbox::StyleValue section("Interface", "OpenGLConfig", "ScreenRendering");
    const GoodVisualChooserQGLContext byDefault;
    EXPECT_FALSE(byDefault.requestedFormat().accum() && byDefault.requestedFormat().accumBufferSize() > 0);
    writeStyleInteger(section, "MaxAccumBufferSize", -8);
    EXPECT_EQ(GoodVisualChooserQGLContext().requestedFormat().accumBufferSize(),
              byDefault.requestedFormat().accumBufferSize());
    writeStyleInteger(section, "MaxAccumBufferSize", 8);
    EXPECT_EQ(GoodVisualChooserQGLContext().requestedFormat().accumBufferSize(), 8);
    writeStyleInteger(section, "MaxAccumBufferSize", 0);
}
