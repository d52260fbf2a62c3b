#include "engine/text/PlainText.h"

#include <gtest/gtest.h>

using namespace velmora::engine;

namespace {

const std::string replacement = "\uFFFD";

std::string repeated(const std::string& text, std::size_t count)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

} // namespace

TEST(OneLine, KeepsCharactersOfEveryLength)
{
    EXPECT_EQ(oneLine("a°²α€𝄞"), "a°²α€𝄞");
    EXPECT_EQ(oneLine(" a "), " a ");
    EXPECT_EQ(oneLine(""), "");
}

TEST(OneLine, ReplacesEveryByteThatIsNotPartOfACharacter)
{
    EXPECT_EQ(oneLine("a\xFFz"), "a" + replacement + "z");
    EXPECT_EQ(oneLine("a\xC2"), "a" + replacement) << "cut off";
    EXPECT_EQ(oneLine("\xC0\x80"), repeated(replacement, 2)) << "an overlong form";
    EXPECT_EQ(oneLine("\xE0\x80\xAF"), repeated(replacement, 3)) << "a longer overlong form";
    EXPECT_EQ(oneLine("\xED\xA0\x80"), repeated(replacement, 3)) << "a surrogate";
    EXPECT_EQ(oneLine("\xF4\x90\x80\x80"), repeated(replacement, 4)) << "beyond Unicode";
    EXPECT_EQ(oneLine("\xE2\x82 A"), repeated(replacement, 2) + " A") << "interrupted";
    EXPECT_EQ(oneLine(std::string("a\0b", 3)), "a" + replacement + "b");
}

TEST(OneLine, MakesBlanksOfLineBreaksAndTabs)
{
    EXPECT_EQ(oneLine("a\nb\r\nc\td\u2028e\u2029f\u0085g"), "a b c d e f g");
}

TEST(OneLine, ShowsOtherControlCharactersByTheirSymbols)
{
    EXPECT_EQ(oneLine("a\x1B\x7F"), "a␛␡");
    EXPECT_EQ(oneLine("\u0090"), replacement);
}

TEST(OneLine, CutsWhatIsTooLongBetweenCharacters)
{
    const std::string letters = oneLine(std::string(100000, 'm'));
    EXPECT_EQ(letters, std::string(LongestLine, 'm') + "…");
    EXPECT_EQ(oneLine(letters), letters) << "cut once, it stays";
    EXPECT_EQ(oneLine(repeated("語", 100000)), repeated("語", LongestLine) + "…");
    EXPECT_EQ(oneLine(repeated("e\u0301", 400)), repeated("e\u0301", 400)) << "within the bound";
    EXPECT_EQ(oneLine("x" + repeated("e\u0301", 50000)), "x" + repeated("e\u0301", 499) + "…");
    EXPECT_EQ(oneLine("e" + repeated("\u0301", 50000)), "e" + repeated("\u0301", 999) + "…");
    EXPECT_LE(oneLine(repeated("\xFF", 100000)).size(), LongestText);
    EXPECT_LE(oneLine(repeated("𝄞", 100000)).size(), LongestText);
}

TEST(Shortened, CountsCharactersAsAReaderDoes)
{
    EXPECT_EQ(shortened("abc", 3), "abc");
    EXPECT_EQ(shortened("abcd", 3), "abc…");
    EXPECT_EQ(shortened("温度計", 3), "温度計");
    EXPECT_EQ(shortened("温度計測", 3), "温度計…");
    EXPECT_EQ(shortened("e\u0301e\u0301e\u0301e\u0301", 3), "e\u0301e\u0301e\u0301…") << "accents go with their letter";
    EXPECT_EQ(shortened("👨‍👩‍👧x", 1), "👨‍👩‍👧…") << "a family is one";
    EXPECT_EQ(shortened("a\xFF\xFF\xFF", 3), "a" + repeated(replacement, 2) + "…");
    EXPECT_EQ(shortened(std::string(100000, 'm'), 3), "mmm…");
}
