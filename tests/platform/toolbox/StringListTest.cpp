#include "toolbox/StringList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using velmora::toolbox::StringList;

TEST(StringList, IsEmptyWithoutWords)
{
    EXPECT_EQ(0, StringList().count());
}

TEST(StringList, TakesUpToSevenWords)
{
    EXPECT_THAT(StringList("a", "b", "c", "d", "e", "f", "g").words(), ElementsAre("a", "b", "c", "d", "e", "f", "g"));
}

TEST(StringList, TheFirstNullEndsTheWords)
{
    EXPECT_THAT(StringList("a", nullptr, "c").words(), ElementsAre("a"));
    EXPECT_EQ(0, StringList(nullptr, "b").count());
}

TEST(StringList, AppendsAtTheEnd)
{
    StringList words("GlobalPaper", "PaperSizeInfo");
    words.append("Büro");
    EXPECT_EQ(3, words.count());
    EXPECT_THAT(words.words(), ElementsAre("GlobalPaper", "PaperSizeInfo", "Büro"));
}
