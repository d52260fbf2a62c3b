#include "integration/offscreen/PixelRows.h"

#include <QColor>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numeric>
#include <string>
#include <vector>

namespace velmora::sdk::integration::intern {
namespace {

constexpr unsigned char Untouched = 0x5a;

std::vector<const PixelRows*> allForms()
{
    std::vector<const PixelRows*> forms{&portablePixelRows(), &pixelRows()};
    if (avx2PixelRows())
        forms.push_back(avx2PixelRows());
    return forms;
}

/// Every byte differs from its neighbours, and every value of every channel turns up.
std::vector<std::uint32_t> manyPixels(int count)
{
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(count));
    std::uint32_t state = 12345;
    for (std::uint32_t& pixel : pixels)
        pixel = state = state * 1664525u + 1013904223u;
    return pixels;
}

#ifdef __x86_64__

/// As the kernel tells it.
bool processorHas(const std::string& feature)
{
    std::ifstream facts("/proc/cpuinfo");
    const std::istream_iterator<std::string> none;
    return std::find(std::istream_iterator<std::string>(facts), none, feature) != none;
}

TEST(PixelRows, TheFormForAProcessorThatDoesEightAtOnceIsTakenWhereItIsOne)
{
    ASSERT_TRUE(processorHas("sse2"));
    EXPECT_EQ(&pixelRows(), processorHas("avx2") ? avx2PixelRows() : &portablePixelRows());
    EXPECT_EQ(avx2PixelRows() != nullptr, processorHas("avx2"));
}

#endif

TEST(PixelRows, SplittingGivesRedGreenAndBlueAndDropsAlpha)
{
    const std::uint32_t pixels[] = {0x80112233u, 0xff445566u, 0x00778899u};
    for (const PixelRows* form : allForms()) {
        unsigned char red[3], green[3], blue[3];
        form->intoPlanes(pixels, 3, red, green, blue);
        EXPECT_EQ(std::vector<unsigned char>(red, red + 3), (std::vector<unsigned char>{0x11, 0x44, 0x77}));
        EXPECT_EQ(std::vector<unsigned char>(green, green + 3), (std::vector<unsigned char>{0x22, 0x55, 0x88}));
        EXPECT_EQ(std::vector<unsigned char>(blue, blue + 3), (std::vector<unsigned char>{0x33, 0x66, 0x99}));
    }
}

TEST(PixelRows, EveryFormSplitsEveryWidthAtEveryAlignmentLikeThePortableOne)
{
    const std::vector<std::uint32_t> pixels = manyPixels(300);
    for (const PixelRows* form : allForms())
        for (int width = 0; width <= 130; ++width)
            for (int shift = 0; shift < 4; ++shift) {
                std::vector<unsigned char> planes(3 * 140, Untouched);
                std::vector<unsigned char> expected = planes;
                unsigned char* const at = planes.data() + shift;
                unsigned char* const expectedAt = expected.data() + shift;
                form->intoPlanes(pixels.data() + shift, width, at, at + 136, at + 272);
                portablePixelRows().intoPlanes(pixels.data() + shift, width, expectedAt, expectedAt + 136,
                                               expectedAt + 272);
                ASSERT_EQ(planes, expected) << "width " << width << ", shift " << shift;
            }
}

TEST(PixelRows, AWidthOfZeroWritesNothing)
{
    const std::uint32_t pixel = 0xffffffffu;
    for (const PixelRows* form : allForms()) {
        unsigned char planes[3] = {Untouched, Untouched, Untouched};
        std::uint32_t target = 7;
        form->intoPlanes(&pixel, 0, planes, planes + 1, planes + 2);
        form->fromRgbaBytes(&pixel, 0, &target);
        EXPECT_EQ(std::count(planes, planes + 3, Untouched), 3);
        EXPECT_EQ(target, 7u);
    }
}

TEST(PixelRows, ConvertingIsTheColourOfTheThreeBytesForEveryValueOfEachByte)
{
    std::vector<std::uint32_t> rgba;
    std::vector<std::uint32_t> expected;
    for (int value = 0; value < 256; ++value) {
        const int r = value, g = 255 - value, b = (value * 7 + 3) & 255, a = (value * 11) & 255;
        const unsigned char bytes[] = {static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                                       static_cast<unsigned char>(b), static_cast<unsigned char>(a)};
        std::uint32_t pixel;
        std::copy(bytes, bytes + 4, reinterpret_cast<unsigned char*>(&pixel));
        rgba.push_back(pixel);
        expected.push_back(QColor(r, g, b, 255).rgb());
    }
    for (const PixelRows* form : allForms()) {
        std::vector<std::uint32_t> pixels(rgba.size());
        form->fromRgbaBytes(rgba.data(), static_cast<int>(rgba.size()), pixels.data());
        EXPECT_EQ(pixels, expected);
    }
}

TEST(PixelRows, EveryFormConvertsEveryWidthAtEveryAlignmentLikeThePortableOne)
{
    const std::vector<std::uint32_t> rgba = manyPixels(300);
    for (const PixelRows* form : allForms())
        for (int width = 0; width <= 130; ++width)
            for (int shift = 0; shift < 8; ++shift) {
                std::vector<std::uint32_t> pixels(150, Untouched);
                std::vector<std::uint32_t> expected = pixels;
                form->fromRgbaBytes(rgba.data() + shift, width, pixels.data() + shift);
                portablePixelRows().fromRgbaBytes(rgba.data() + shift, width, expected.data() + shift);
                ASSERT_EQ(pixels, expected) << "width " << width << ", shift " << shift;
            }
}

} // namespace
} // namespace velmora::sdk::integration::intern
