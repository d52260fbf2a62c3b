#include "engine/style/StyleWords.h"

#include <gtest/gtest.h>
#include <set>

using namespace velmora::engine::style;

TEST(StyleWords, AWordKeepsItsIdentifier)
{
    const long first = idOfWord("Paper");
    const long other = idOfWord("PaperSize");
    EXPECT_GT(first, 0);
    EXPECT_NE(first, other);
    EXPECT_EQ(first, idOfWord("Paper"));
}

TEST(StyleWords, AnIdentifierLeadsBackToItsWordWhateverIsAddedLater)
{
    const long id = idOfWord("kept");
    const std::string* word = wordOfId(id);
    std::set<long> ids;
    for (int i = 0; i < 1000; ++i)
        ids.insert(idOfWord("more" + std::to_string(i)));
    EXPECT_EQ(1000u, ids.size());
    ASSERT_EQ(word, wordOfId(id));
    EXPECT_EQ("kept", *word);
}

TEST(StyleWords, NumbersThatNoWordHasLeadNowhere)
{
    EXPECT_EQ(nullptr, wordOfId(-1));
    EXPECT_EQ(nullptr, wordOfId(0));
    EXPECT_EQ(nullptr, wordOfId(1000000));
}
