#include "engine/gl/GLStateGuard.h"
#include "engine/text/TextLine.h"
#include "engine/text/TextPainter.h"
#include "tests/platform/plot/Picture.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

TextImage wholeImage(const std::string& text, double size)
{
    TextLine line(FontFace::regular(), text, size);
    TextImage image;
    EXPECT_TRUE(line.next(image));
    TextImage rest;
    EXPECT_FALSE(line.next(rest)) << "small text comes in one picture";
    return image;
}

long inkOf(const TextImage& image)
{
    return std::accumulate(image.coverage.begin(), image.coverage.end(), 0L);
}

} // namespace

TEST(FontFace, HasTheSignsThatUnitsAndNumbersNeed)
{
    for (const ShapedGlyph& glyph : FontFace::regular().line("°²³µαβγΔΣΩ×…⁰¹⁷⁻")->glyphs)
        EXPECT_TRUE(glyph.font && glyph.index != 0) << "at " << glyph.x;
}

TEST(MeasureText, IsExactlyProportionalToTheSize)
{
    const TextExtent small = measureText(FontFace::regular(), "Temperature (°C)", 9);
    const TextExtent large = measureText(FontFace::regular(), "Temperature (°C)", 900);
    EXPECT_NEAR(large.width, small.width * 100, 1e-6);
    EXPECT_NEAR(large.height(), small.height() * 100, 1e-6);
    EXPECT_GT(small.width, 9 * 4);
}

TEST(MeasureText, AddsUpCharactersNotBytes)
{
    FontFace& face = FontFace::regular();
    const double degree = measureText(face, "°", 20).width;
    EXPECT_GT(degree, 0);
    EXPECT_LT(degree, 20);
    EXPECT_NEAR(measureText(face, "°°", 20).width, 2 * degree, 1e-9);
    EXPECT_EQ(measureText(face, "", 20).width, 0);
}

TEST(MeasureText, BoldIsWider)
{
    EXPECT_GT(measureText(FontFace::bold(), "mmm", 20).width, measureText(FontFace::regular(), "mmm", 20).width);
}

TEST(TextLine, FillsAboutTheMeasuredExtent)
{
    const TextImage image = wholeImage("HxH", 30);
    const TextExtent extent = measureText(FontFace::regular(), "HxH", 30);
    EXPECT_NEAR(image.width, extent.width, 6);
    EXPECT_NEAR(image.height, 30 * 0.73, 2) << "the height of capitals";
    EXPECT_NEAR(image.bottom, 0, 1) << "capitals stand on the baseline";
    EXPECT_GT(inkOf(image), 0);
}

TEST(TextLine, IsAntialiased)
{
    const TextImage image = wholeImage("S", 24);
    long between = 0;
    for (unsigned char coverage : image.coverage)
        between += coverage > 20 && coverage < 235 ? 1 : 0;
    EXPECT_GT(between, 10);
}

TEST(TextLine, SpacesMakeNoPictureButTakeRoom)
{
    TextLine line(FontFace::regular(), "   ", 20);
    TextImage image;
    EXPECT_TRUE(line.next(image));
    EXPECT_EQ(image.width * image.height, 0);
    EXPECT_GT(measureText(FontFace::regular(), "   ", 20).width, 10);
}

TEST(TextLine, LargeTextComesInSeveralPicturesThatMakeTheSameLine)
{
    TextLine line(FontFace::regular(), "WWWW", 150);
    TextImage image;
    int pictures = 0;
    int right = 0;
    while (line.next(image)) {
        ++pictures;
        EXPECT_GE(image.left, right - 4);
        right = image.left + image.width;
    }
    EXPECT_EQ(pictures, 4);
    EXPECT_NEAR(right, measureText(FontFace::regular(), "WWWW", 150).width, 10);
}

TEST(TextLine, TurnedTextReadsUpwards)
{
    const TextImage image = wholeImage("L", 40);
    const TextImage turned = turnedUpwards(image);
    EXPECT_EQ(turned.width, image.height);
    EXPECT_EQ(turned.height, image.width);
    EXPECT_EQ(inkOf(turned), inkOf(image));
    // The foot of the L, a full row at the bottom, is a full column at the right; its stem, at the
    // left, is at the bottom.
    long rightColumn = 0;
    long leftColumn = 0;
    for (int y = 0; y < turned.height; ++y) {
        rightColumn += turned.coverage[static_cast<std::size_t>(y * turned.width + turned.width - 2)];
        leftColumn += turned.coverage[static_cast<std::size_t>(y * turned.width + 2)];
    }
    EXPECT_GT(rightColumn, 2 * leftColumn);
    EXPECT_LT(turned.left, 0) << "capitals stand left of an upward baseline";
    EXPECT_NEAR(turned.left + turned.width, 0, 1);
}

TEST(PaintTextImage, PutsCoverageOnThePixelsOfThePen)
{
    Picture picture(64, 64);
    const GLFunctions& gl = currentGL();
    {
        const GLStateGuard guard(gl);
        gl.MatrixMode(GL_PROJECTION);
        gl.Ortho(0, 64, 0, 64, -1, 1);
        gl.Enable(GL_BLEND);
        gl.BlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        gl.Color4ub(0, 0, 0, 255);
        TextImage block;
        block.left = 2;
        block.bottom = 1;
        block.width = 3;
        block.height = 2;
        block.coverage.assign(6, 255);
        paintTextImage(gl, block, 10, 20, 64, 64);
    }
    picture.refresh();
    EXPECT_EQ(picture.countNear(0, 0, 0, 0), 6u);
    EXPECT_EQ(picture.countInk(), 6u);
    EXPECT_TRUE(picture.at(12, 21).isNear(0, 0, 0, 0));
    EXPECT_TRUE(picture.at(14, 22).isNear(0, 0, 0, 0));
    EXPECT_EQ(gl.GetError(), GLenum(GL_NO_ERROR));
}
