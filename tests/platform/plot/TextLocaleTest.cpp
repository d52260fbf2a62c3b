// Text for a person whose languages are Japanese and Serbian: it has to look as it does for everybody.

#include "engine/text/FontFace.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

using namespace velmora::engine;

namespace {

/// A toolkit does the same when an application begins.
class LocaleOfTheEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        ASSERT_TRUE(std::setlocale(LC_ALL, "")) << "the locale of the environment was not generated";
        ASSERT_STREQ(std::getenv("LANGUAGE"), "sr:ja");
    }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new LocaleOfTheEnvironment);

} // namespace

TEST(TextInAnotherLocale, KeepsTheFormsOfEveryScript)
{
    ASSERT_TRUE(environment);
    // The text font has another form of this letter for Serbian; without it, the letter has the glyph that the font
    // names first for it.
    const auto line = FontFace::regular().line("б");
    ASSERT_EQ(line->glyphs.size(), 1u);
    EXPECT_EQ(line->glyphs[0].index, line->glyphs[0].font->glyphOf(U'б'));
}
