// The 3D-mouse seam of the library itself.

#include "tests/intern/MonitorFixture.h"

#include "integration/intern/Mouse3DInput.h"

#include <cstdlib>
#include <memory>

using namespace velmora::test;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

// Whatever the machine has: what is kept is the question.
const int g_withoutDevice = setenv("VELMORA_SPNAV_LIBRARY", "/there/is/none", 1);

} // namespace

TEST_F(MonitorTest, NoMotionIsInProgressEvenAfterTheStart)
{
    EXPECT_FALSE(threedmouse::isProcessingThreedMouseEvents());
    monitor.startThreedMouse("device", widget);
    EXPECT_FALSE(threedmouse::isProcessingThreedMouseEvents());
}

TEST(Mouse3DInput, EachStartReplacesTheCallbacksOfTheOneBefore)
{
    QWidget widget;
    const auto token = std::make_shared<int>(0);
    const auto listenOnce = [&](const std::shared_ptr<int>& kept) {
        threedmouse::startListeningForEvents(
            "device", widget, [kept](const auto&) {}, [kept] {}, [kept](const auto&) {});
    };
    listenOnce(token);
    EXPECT_EQ(token.use_count(), 4);
    listenOnce(nullptr);
    EXPECT_EQ(token.use_count(), 1);
}
