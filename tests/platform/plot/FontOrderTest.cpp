// Fonts for a person whose language is Japanese, on a system of two fonts. Both have a blank, one has Japanese.

#include "engine/text/FontFace.h"
#include "tests/platform/plot/FontSettings.h"

#include <gtest/gtest.h>

using namespace velmora::engine;

TEST(FontOrder, FollowsTheLanguageOfTheTextNotThatOfTheLocale)
{
    const test::FontSettings settings(R"(<dir>/usr/share/fonts/truetype/kacst-one</dir>
                                         <dir>/usr/share/fonts/truetype/droid</dir>)");
    const auto blank = FontFace::regular().line(" ");
    const auto chinese = FontFace::regular().line("語");
    ASSERT_EQ(blank->glyphs.size(), 1u);
    ASSERT_EQ(chinese->glyphs.size(), 1u);
    EXPECT_NE(blank->glyphs[0].font, chinese->glyphs[0].font);
}
