// A process without an application object has no desktop: the engine's assertion hears of it.
#include "engine/VelEng.h"
#include "integration/services/ManagerMiscService.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace velmora::test {

namespace {

using sdk::integration::services::ManagerMiscService;
using ::testing::ElementsAre;

std::vector<std::string> assertion;

void onAssertion(const char* kind, const char* condition, const char* message, const char* function)
{
    assertion = {kind, condition, message, function};
}

class WithoutADesktop : public ::testing::Test {
protected:
    void SetUp() override
    {
        assertion.clear();
        VelEngSetVUAssertHandler(&onAssertion);
    }
    void TearDown() override { VelEngSetVUAssertHandler(nullptr); }
};

} // namespace

TEST_F(WithoutADesktop, TheDotPitchRaisesTheAssertion)
{
    double x = -1, y = -1;
    ManagerMiscService().getDotPitchPerCm(&x, &y);
    EXPECT_THAT(assertion, ElementsAre("Check", "( (desktop) != __null )", "Invalid Desktop Object",
                                       "ManagerMiscService::getDotPitchPerCm"));
    EXPECT_EQ(-1, x);
    EXPECT_EQ(-1, y);
}

TEST_F(WithoutADesktop, TheScreenSizeRaisesTheAssertion)
{
    int width = -1;
    ManagerMiscService().getScreenSizeInPixels(&width, nullptr);
    EXPECT_THAT(assertion, ElementsAre("Check", "( (desktop) != __null )", "Invalid Desktop Object",
                                       "ManagerMiscService::getScreenSizeInPixels"));
    EXPECT_EQ(-1, width);
}

} // namespace velmora::test
