#include "integration/toolkit/LargeImage.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using sdk::integration::toolkit::LargeImage;

constexpr int Width = 1024; // with its height large enough for memory of its own
constexpr int Height = 512;

QImage fill(LargeImage& large, QRgb color)
{
    std::uint32_t* const pixels = large.pixelsFor(Width, Height);
    std::fill_n(pixels, std::ptrdiff_t{Width} * Height, color);
    return large.image();
}

} // namespace

TEST(LargeImage, TakesTheMemoryOfThePictureBeforeWhenNobodyHoldsIt)
{
    LargeImage large;
    const void* const first = fill(large, qRgb(1, 2, 3)).constBits();
    EXPECT_EQ(fill(large, qRgb(4, 5, 6)).constBits(), first);
}

TEST(LargeImage, LeavesAPictureAsItIsThatSomebodyHolds)
{
    LargeImage large;
    const QImage first = fill(large, qRgb(1, 2, 3));
    const QImage second = fill(large, qRgb(4, 5, 6));
    EXPECT_EQ(first.pixel(Width - 1, Height - 1), qRgb(1, 2, 3));
    EXPECT_EQ(second.pixel(Width - 1, Height - 1), qRgb(4, 5, 6));
}

TEST(LargeImage, HasTheSizeThatIsAskedForLast)
{
    LargeImage large;
    fill(large, qRgb(1, 2, 3));
    ASSERT_NE(large.pixelsFor(Width + 1, Height - 1), nullptr);
    EXPECT_EQ(large.image().size(), QSize(Width + 1, Height - 1));
}

TEST(LargeImage, IsNullWithoutASizeAndWithOneThatNoImageHas)
{
    LargeImage large;
    fill(large, qRgb(1, 2, 3));
    EXPECT_EQ(large.pixelsFor(0, Height), nullptr);
    EXPECT_TRUE(large.image().isNull());
    EXPECT_EQ(large.pixelsFor(1 << 30, 16), nullptr);
    EXPECT_NE(large.pixelsFor(Width, Height), nullptr);
}

} // namespace velmora::test
