#include "tests/viewer/PictureColours.h"

#include "tests/support/Pixels.h"

#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace velmora::test {

namespace {

constexpr int ColourTolerance = 6;
constexpr int LeastPixels = 50;
constexpr int LeastSaturation = 40;

// The colour bar has them as they are; the surface itself is lit.
const QRgb HeightColours[] = {qRgb(56, 60, 132), qRgb(45, 154, 134), qRgb(250, 236, 150)};
const QRgb LineColours[] = {qRgb(0, 92, 158), qRgb(200, 78, 22)};

int saturation(QRgb color)
{
    const auto [least, most] = std::minmax({qRed(color), qGreen(color), qBlue(color)});
    return most - least;
}

} // namespace

void expectSurface(const QImage& picture)
{
    for (const QRgb colour : HeightColours)
        EXPECT_GT(countColor(picture, colour, ColourTolerance), LeastPixels) << std::hex << colour;
    EXPECT_GT(countColor(picture, qRgb(255, 255, 255)), picture.width() * picture.height() / 4);
}

void expectLines(const QImage& picture)
{
    for (const QRgb colour : LineColours)
        EXPECT_GT(countColor(picture, colour, ColourTolerance), LeastPixels) << std::hex << colour;
    EXPECT_GT(countColor(picture, qRgb(255, 255, 255)), picture.width() * picture.height() / 2);
}

int plotPixels(const QImage& picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += saturation(picture.pixel(x, y)) > LeastSaturation ? 1 : 0;
    return count;
}

} // namespace velmora::test
