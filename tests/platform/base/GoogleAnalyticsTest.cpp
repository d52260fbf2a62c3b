#include "analytics/GoogleAnalytics.h"

#include <gtest/gtest.h>

using velmora::analytics::GoogleAnalytics;

TEST(GoogleAnalytics, KnowsTheObjectsOfTheReporting)
{
    EXPECT_TRUE(GoogleAnalytics::isNetworkSource("velmora_usage_report"));
    EXPECT_TRUE(GoogleAnalytics::isNetworkSource("velmora_usage_report_reply"));
}

TEST(GoogleAnalytics, KnowsNoOtherObject)
{
    EXPECT_FALSE(GoogleAnalytics::isNetworkSource(""));
    EXPECT_FALSE(GoogleAnalytics::isNetworkSource("GLDrawArea"));
    EXPECT_FALSE(GoogleAnalytics::isNetworkSource("velmora_usage"));
    EXPECT_FALSE(GoogleAnalytics::isNetworkSource("Velmora_Usage_Report"));
}
