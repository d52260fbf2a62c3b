// The first question after the limits of off-screen drawing, asked while no context can be made current. A
// program of its own, because the answers of a process are kept.

#include "integration/toolkit/PixelBuffer.h"
#include "tests/offscreen/RefusedContexts.h"
#include "tests/offscreen/ToolkitLimits.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

TEST(TheFirstQueryOfTheLimits, IsAskedAgainWhenItFailed)
{
    if (const char* const reason = whyLimitsNeedNoContext())
        GTEST_SKIP() << reason;
    {
        const RefusedContexts refusal;
        EXPECT_FALSE(toolkit::hasPixelBuffers());
    }
    EXPECT_GT(RefusedContexts::count(), 0);
    EXPECT_TRUE(toolkit::hasPixelBuffers());
}

} // namespace
} // namespace velmora::test
