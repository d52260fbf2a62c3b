#include "engine/page/Frame.h"

#include <gtest/gtest.h>

namespace velmora::engine {
namespace {

TEST(Frames, FittingScalesAllTogetherAndKeepsHowTheyLieToEachOther)
{
    std::vector<Frame> frames(2);
    frames[0].rect = {1, 1, 2, 2};
    frames[1].rect = {3, 2, 2, 3};
    fitFramesInto(frames, {0.5, 0.25, 8, 8});
    EXPECT_DOUBLE_EQ(frames[0].rect.x, 0.5);
    EXPECT_DOUBLE_EQ(frames[0].rect.y, 0.25);
    EXPECT_DOUBLE_EQ(frames[0].rect.width, 4);
    EXPECT_DOUBLE_EQ(frames[0].rect.height, 4);
    EXPECT_DOUBLE_EQ(frames[1].rect.x, 4.5);
    EXPECT_DOUBLE_EQ(frames[1].rect.y, 2.25);
    EXPECT_DOUBLE_EQ(frames[1].rect.width, 4);
    EXPECT_DOUBLE_EQ(frames[1].rect.height, 6);
}

TEST(Frames, FittingNothingIsNothing)
{
    std::vector<Frame> frames;
    fitFramesInto(frames, {0, 0, 8, 8});
    EXPECT_TRUE(frames.empty());
    frames.resize(1);
    fitFramesInto(frames, {0, 0, 8, 8});
    EXPECT_DOUBLE_EQ(frames[0].rect.width, 0) << "a frame without extent has no scale";
}

} // namespace
} // namespace velmora::engine
