// Text for a person whose languages are Japanese and Serbian: it has to look as it does for everybody.

#include "engine/text/FontFace.h"

#include <gtest/gtest.h>

using namespace velmora::engine;

TEST(TextInAnotherLocale, KeepsTheFormsOfEveryScript)
{
    // The text font has another form of this letter for Serbian; without it, the letter has the glyph that the font
    // names first for it.
    const auto line = FontFace::regular().line("б");
    ASSERT_EQ(line->glyphs.size(), 1u);
    EXPECT_EQ(line->glyphs[0].index, line->glyphs[0].font->glyphOf(U'б'));
}
