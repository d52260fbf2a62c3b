// Compiled into a test program, it sets the locale of the environment as a toolkit does when an application begins.

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

namespace {

class LocaleOfTheEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        ASSERT_TRUE(std::setlocale(LC_ALL, "")) << "the locale of the environment was not generated";
        std::locale::global(std::locale(""));
    }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new LocaleOfTheEnvironment);

} // namespace

TEST(Locale, IsThatOfTheEnvironment)
{
    ASSERT_TRUE(environment);
    EXPECT_STRNE(std::setlocale(LC_ALL, nullptr), "C");
}
