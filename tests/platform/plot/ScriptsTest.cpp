// Text of the world's scripts. Needs a font of each: fonts-droid-fallback, fonts-kacst-one, fonts-lohit-deva.

#include "engine/text/FontFace.h"
#include "engine/text/TextLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <set>

using namespace velmora::engine;

namespace {

std::shared_ptr<const ShapedLine> shaped(const std::string& text)
{
    return FontFace::regular().line(text);
}

double widthOf(const std::string& text)
{
    return measureText(FontFace::regular(), text, 100).width;
}

std::vector<std::uint32_t> indicesOf(const std::string& text)
{
    std::vector<std::uint32_t> indices;
    for (const ShapedGlyph& glyph : shaped(text)->glyphs)
        indices.push_back(glyph.index);
    return indices;
}

std::size_t framesIn(const std::string& text)
{
    const auto line = shaped(text);
    return static_cast<std::size_t>(
        std::count_if(line->glyphs.begin(), line->glyphs.end(), [](const ShapedGlyph& glyph) { return !glyph.font; }));
}

/// The pictures of a line, drawn.
long inkOf(const std::string& text, double size)
{
    TextLine line(FontFace::regular(), text, size);
    TextImage image;
    long ink = 0;
    while (line.next(image))
        ink += std::count_if(image.coverage.begin(), image.coverage.end(), [](unsigned char c) { return c > 127; });
    return ink;
}

std::string repeated(const std::string& text, std::size_t count)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

/// In no font, and never to be.
const std::string unknown = "\U000F1234";

} // namespace

TEST(Scripts, ThatTheTextFontLacksComeFromOthers)
{
    const FontFile* const own = shaped("a")->glyphs.at(0).font;
    for (const char* text : {"温度", "तापमान", "ひらがな"}) {
        EXPECT_EQ(framesIn(text), 0u) << text;
        EXPECT_NE(shaped(text)->glyphs.at(0).font, own) << text;
        EXPECT_NE(shaped(text)->glyphs.at(0).index, 0u) << text;
        EXPECT_GT(inkOf(text, 20), 50) << text;
    }
}

TEST(Scripts, ArabicLettersJoin)
{
    EXPECT_LT(widthOf("محمد"), 2 * widthOf("م") + widthOf("ح") + widthOf("د") - 2);
    const std::vector<std::uint32_t> joined = indicesOf("ههه");
    EXPECT_EQ(std::set<std::uint32_t>(joined.begin(), joined.end()).size(), 3u) << "first, middle and last form";
}

TEST(Scripts, ArabicIsSetFromTheRight)
{
    // Alef joins nothing behind it: the same glyphs stand at the ends.
    const std::vector<std::uint32_t> both = indicesOf("اد");
    ASSERT_EQ(both.size(), 2u);
    EXPECT_EQ(both[0], indicesOf("د")[0]);
    EXPECT_EQ(both[1], indicesOf("ا")[0]);
}

TEST(Scripts, ADevanagariConjunctIsOneSign)
{
    // Ka, virama, ssa.
    EXPECT_EQ(shaped("क्ष")->glyphs.size(), 1u);
    EXPECT_LT(widthOf("क्ष"), widthOf("क") + widthOf("ष") - 5);
}

TEST(Scripts, ADevanagariVowelSignStandsBeforeItsLetter)
{
    const std::vector<std::uint32_t> syllable = indicesOf("कि");
    ASSERT_EQ(syllable.size(), 2u);
    EXPECT_EQ(syllable[1], indicesOf("क")[0]);
}

TEST(Scripts, ACombiningAccentAddsNoWidth)
{
    EXPECT_NEAR(widthOf("e\u0301"), widthOf("e"), 1e-9) << "of which there is a letter";
    EXPECT_NEAR(widthOf("x\u0301"), widthOf("x"), 1e-9) << "of which there is none";
    const auto accented = shaped("x\u0301x");
    ASSERT_EQ(accented->glyphs.size(), 3u);
    EXPECT_NEAR(accented->glyphs[2].x, shaped("x")->width, 1e-9);
}

TEST(Scripts, HebrewInLatinTextIsTurnedAroundAlone)
{
    const std::vector<std::uint32_t> mixed = indicesOf("ab אב cd");
    const std::vector<std::uint32_t> a = indicesOf("ab ");
    const std::vector<std::uint32_t> cd = indicesOf(" cd");
    const std::vector<std::uint32_t> expected{a[0],  a[1],  a[2], indicesOf("ב")[0], indicesOf("א")[0],
                                              cd[0], cd[1], cd[2]};
    EXPECT_EQ(mixed, expected);
}

TEST(Scripts, TheFirstLetterDecidesTheDirection)
{
    const std::vector<std::uint32_t> hebrew = indicesOf("א ab");
    EXPECT_EQ(hebrew.front(), indicesOf("a")[0]);
    EXPECT_EQ(hebrew.back(), indicesOf("א")[0]);
    const std::vector<std::uint32_t> latin = indicesOf("a אב");
    EXPECT_EQ(latin.front(), indicesOf("a")[0]);
    EXPECT_EQ(latin.back(), indicesOf("א")[0]);
    const std::vector<std::uint32_t> digits = indicesOf("12 34");
    EXPECT_EQ(digits.front(), indicesOf("1")[0]);
}

TEST(Scripts, EveryScriptIsExactlyProportionalToTheSize)
{
    for (const char* text : {"温度 (°C)", "तापमान", "درجة الحرارة", "טמפרטורה", "x\u0301", unknown.c_str()}) {
        const double small = measureText(FontFace::regular(), text, 9).width;
        EXPECT_GT(small, 0) << text;
        EXPECT_NEAR(measureText(FontFace::regular(), text, 900).width, small * 100, 1e-6) << text;
    }
}

TEST(Scripts, GlyphsAreAsWideAsTheirFontsSay)
{
    double x = 0;
    for (const ShapedGlyph& glyph : shaped("0123 abc 温度")->glyphs) {
        EXPECT_NEAR(glyph.x, x, 1e-5) << "glyph " << glyph.index;
        x += glyph.font->advance(glyph.index);
    }
}

TEST(Scripts, OtherFontsLeaveTheHeightOfALineAsItIs)
{
    const TextExtent latin = measureText(FontFace::regular(), "a", 20);
    const TextExtent chinese = measureText(FontFace::regular(), "温", 20);
    EXPECT_EQ(chinese.ascent, latin.ascent);
    EXPECT_EQ(chinese.descent, latin.descent);
}

TEST(UnknownCharacters, ShowAsAFrameAroundTheirCode)
{
    const auto line = shaped(unknown);
    ASSERT_EQ(framesIn(unknown), 1u);
    ASSERT_EQ(line->glyphs.size(), 7u) << "a frame and six digits";
    EXPECT_EQ(line->glyphs[1].index, indicesOf("0")[0]);
    EXPECT_EQ(line->glyphs[2].index, indicesOf("F")[0]);
    EXPECT_EQ(line->glyphs[6].index, indicesOf("4")[0]);
    EXPECT_GT(line->glyphs[1].y, line->glyphs[4].y) << "in two rows";
    EXPECT_LT(line->glyphs[3].x + 0.2, line->width);
    EXPECT_EQ(shaped("\uE123")->glyphs.size(), 5u) << "a frame and four digits";
    EXPECT_GT(inkOf(unknown, 12), 20);
}

TEST(UnknownCharacters, LeaveTheLettersBesideThemAlone)
{
    EXPECT_NEAR(widthOf("a" + unknown + "b"), widthOf("a") + widthOf(unknown) + widthOf("b"), 1e-9);
}

TEST(UnknownCharacters, OfAnyKindAreDrawn)
{
    for (const char* text : {"👨‍👩‍👧‍👦", "🏳️‍🌈", "\uFFFF", "\U0010FFFF",
                             "\u202E\u2067\u200D", "\uFEFF", "़", "\u0301", "⃣"}) {
        const std::string around = std::string("a") + text + "b";
        EXPECT_GE(inkOf(around, 16), inkOf("ab", 16) - 10) << text;
        EXPECT_GE(widthOf(around), widthOf("a")) << text;
    }
}

TEST(DamagedText, ShowsTheReplacementCharacterForEachByte)
{
    EXPECT_EQ(indicesOf("a\xC2\xFF"), indicesOf("a\uFFFD\uFFFD"));
}

TEST(BlanksAtTheEnds, TakeRoom)
{
    EXPECT_NEAR(widthOf("  a "), widthOf("a") + 3 * widthOf(" "), 1e-9);
    EXPECT_NEAR(widthOf("a\n\tb"), widthOf("a  b"), 1e-9) << "line breaks and tabs are blanks";
}

TEST(VeryLongText, IsBounded)
{
    const auto begin = std::chrono::steady_clock::now();
    for (const char* text : {"m", "語", "e\u0301", "\xFF", "ا", "क्ष"}) {
        EXPECT_LE(shaped(repeated(text, 100000))->glyphs.size(), 1010u) << text;
        EXPECT_GT(shaped(repeated(text, 100000))->glyphs.size(), 100u) << text;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}
