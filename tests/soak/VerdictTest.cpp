#include "tests/soak/Verdict.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// One sample a minute.
template <typename Holding>
std::vector<Sample> samples(const char* what, Holding holding)
{
    std::vector<Sample> result;
    for (int minute = 0; minute < 20; ++minute)
        result.push_back({static_cast<double>(minute), {{what, holding(minute)}}});
    return result;
}

} // namespace

TEST(SoakVerdict, WhatStaysTheSameIsFlat)
{
    EXPECT_THAT(findGrowth(samples("gl_textures", [](int) { return 7.0; }), 5, {100, 0}), IsEmpty());
    EXPECT_THAT(findGrowth(samples("heap_kb", [](int) { return 7000.0; }), 5, {100, 0}), IsEmpty());
}

TEST(SoakVerdict, GrowthBeforeTheGivenMinuteDoesNotCount)
{
    const auto warmUp = [](int minute) { return minute < 5 ? 1000.0 * minute : 5000.0; };
    EXPECT_THAT(findGrowth(samples("heap_kb", warmUp), 5, {100, 0}), IsEmpty());
    EXPECT_THAT(findGrowth(samples("open_files", warmUp), 5, {100, 0}), IsEmpty());
}

TEST(SoakVerdict, MemoryMayGrowByLessThanItsAllowance)
{
    EXPECT_THAT(findGrowth(samples("heap_kb", [](int minute) { return 99.0 * minute; }), 5, {100, 0}), IsEmpty());
    EXPECT_THAT(findGrowth(samples("heap_kb", [](int minute) { return 101.0 * minute; }), 5, {100, 0}),
                ElementsAre(HasSubstr("heap_kb grows by 101 a minute")));
}

TEST(SoakVerdict, OneOddSampleIsNoGrowth)
{
    const auto odd = [](int minute) { return minute == 18 ? 90000.0 : 1000.0; };
    EXPECT_THAT(findGrowth(samples("heap_kb", odd), 5, {100, 0}), IsEmpty());
    EXPECT_THAT(findGrowth(samples("x_window", odd), 5, {100, 0}), IsEmpty());
}

TEST(SoakVerdict, OnePieceMoreForGoodIsGrowth)
{
    EXPECT_THAT(findGrowth(samples("gl_textures", [](int minute) { return minute < 12 ? 7.0 : 8.0; }), 5, {100, 0}),
                ElementsAre("gl_textures grew from 7 to 8"));
}

TEST(SoakVerdict, AKindThatCameOnlyLaterGrewFromNone)
{
    std::vector<Sample> all = samples("x_window", [](int) { return 3.0; });
    for (std::size_t i = 12; i < all.size(); ++i)
        all[i].held["x_cursor"] = 1;
    EXPECT_THAT(findGrowth(all, 5, {100, 0}), ElementsAre("x_cursor grew from 0 to 1"));
}

TEST(SoakVerdict, PiecesMayBeAllowed)
{
    const auto more = [](int minute) { return 7.0 + minute / 10; };
    EXPECT_THAT(findGrowth(samples("x_window", more), 0, {100, 1}), IsEmpty());
    EXPECT_THAT(findGrowth(samples("x_window", more), 0, {100, 0}), ElementsAre("x_window grew from 7 to 8"));
}

TEST(SoakVerdict, TooFewSamplesAreNoVerdict)
{
    EXPECT_THAT(findGrowth(samples("heap_kb", [](int) { return 1.0; }), 15, {100, 0}),
                ElementsAre(HasSubstr("too few samples")));
}
