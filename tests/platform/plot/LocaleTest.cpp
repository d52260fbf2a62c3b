// Runs the tests of the tick labels in the locale of the environment, which has to be one with a decimal comma.

#include "engine/plot/Ticks.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace velmora::engine;

TEST(Locale, ReallyHasADecimalComma)
{
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    EXPECT_STREQ(text, "0,5");
}

TEST(Locale, LeavesLabelsAsTheyAre)
{
    EXPECT_EQ(formatNumber(0.5, 0.1), "0.5");
    EXPECT_EQ(formatNumber(1234567, 1), "1234567");
    EXPECT_EQ(formatNumber(2.5e-9, 1e-10), "2.5×10⁻⁹");
    EXPECT_EQ(formatNumber(3e9, 1e9), "3×10⁹") << "no noughts behind";
}
