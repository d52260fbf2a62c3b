// When two pictures of a program show the same.
#include "tests/applications/Picture.h"

#include <gtest/gtest.h>

using namespace velmora::test;

namespace {

constexpr int Pixels = 500;

Picture withShade(int pixels, unsigned char shade)
{
    Picture picture(4 * Pixels, 100);
    for (int i = 0; i < 4 * pixels; ++i)
        picture[static_cast<std::size_t>(i)] = static_cast<unsigned char>(100 + shade);
    return picture;
}

} // namespace

TEST(Picture, AShadeOfHoveringOnAWholeWidgetIsTheSame)
{
    EXPECT_TRUE(lookAlike(withShade(0, 0), withShade(400, 16)));
}

TEST(Picture, AWidgetInAnotherColourIsADifference)
{
    EXPECT_FALSE(lookAlike(withShade(0, 0), withShade(400, 17)));
}

TEST(Picture, AFewPixelsMayDifferAndAWordMayNot)
{
    EXPECT_TRUE(lookAlike(withShade(0, 0), withShade(100, 155)));
    EXPECT_FALSE(lookAlike(withShade(0, 0), withShade(101, 155)));
}

TEST(Picture, PicturesOfDifferentSizesAreDifferent)
{
    EXPECT_FALSE(lookAlike(Picture(4), Picture(8)));
    EXPECT_FALSE(lookAlike(Picture(), Picture(8)));
}

TEST(Picture, StandsStillAfterAsManyEqualLooksAsAreWanted)
{
    int looks = 0;
    const LastLook last = lookUntilStill([&] { return withShade(looks++ < 3 ? looks : 9, 50); }, {2, 10, 0});
    EXPECT_TRUE(last.isStill);
    EXPECT_EQ(last.picture, withShade(9, 50));
    EXPECT_EQ(looks, 6);
}

TEST(Picture, ThatMovesAllTheTimeIsLookedAtSoManyTimesAndNoMore)
{
    int looks = 0;
    const LastLook last = lookUntilStill([&] { return withShade(++looks, 50); }, {2, 10, 0});
    EXPECT_FALSE(last.isStill);
    EXPECT_EQ(last.picture, withShade(11, 50));
    EXPECT_EQ(looks, 11);
}
