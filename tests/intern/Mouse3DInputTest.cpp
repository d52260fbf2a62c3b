// The seam of the 3D mouse. The library keeps the callbacks to itself, so this program takes the
// seam's place and calls them as a driver would.

#include "tests/intern/MonitorFixture.h"

#include "integration/intern/Mouse3DInput.h"

namespace threedmouse = velmora::sdk::threedmouse;
using namespace velmora::test;
using ::testing::ElementsAre;
using velmora::sdk::integration::MouseEventObservableInterface;

namespace {

struct Device {
    std::string name;
    const QWidget* widget = nullptr;
    threedmouse::MotionCallback motion;
    threedmouse::EndOfMotionCallback endOfMotion;
    threedmouse::ButtonActionCallback buttonAction;
} device;

} // namespace

namespace velmora::sdk::threedmouse {

void startListeningForEvents(const std::string& deviceName, const QWidget& widget, const MotionCallback& motion,
                             const EndOfMotionCallback& endOfMotion, const ButtonActionCallback& buttonAction)
{
    device = {deviceName, &widget, motion, endOfMotion, buttonAction};
}

} // namespace velmora::sdk::threedmouse

TEST_F(MonitorTest, AThreedMouseReachesTheSignalsOfTheMonitor)
{
    const boost::signals2::scoped_connection moved =
        monitor.connectThreedMouseMotionEvent([&](const MouseEventObservableInterface::MotionData& motion) {
            journal.push_back("motion " + std::to_string(motion.elapsedMilliseconds));
        });
    const boost::signals2::scoped_connection rested =
        monitor.connectThreedMouseMotionEventEnd([&] { journal.push_back("end"); });
    const boost::signals2::scoped_connection acted =
        monitor.connectThreedMouseButtonActionEvent([&](MouseEventObservableInterface::ButtonActions action) {
            journal.push_back("button " + std::to_string(action.button) + (action.pressed ? " down" : " up"));
        });
    monitor.startThreedMouse("device", widget);
    EXPECT_EQ(device.name, "device");
    EXPECT_EQ(device.widget, &widget);
    MouseEventObservableInterface::MotionData motion;
    motion.elapsedMilliseconds = 16;
    device.motion(motion);
    device.endOfMotion();
    MouseEventObservableInterface::ButtonActions action;
    action.button = 2;
    action.pressed = true;
    device.buttonAction(action);
    EXPECT_THAT(journal, ElementsAre("motion 16", "end", "button 2 down"));
}
