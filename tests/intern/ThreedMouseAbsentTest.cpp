// A machine without the library of the 3D mice. Each case runs in a process of its own, which loads the library once.

#include "integration/Manager.h"

#include <QApplication>
#include <QWidget>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace velmora::sdk::integration;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

int g_argc = 1;
char g_name[] = "host";
char* g_argv[] = {g_name, nullptr};

int listenWithoutTheLibrary()
{
    setenv("VELMORA_SPNAV_LIBRARY", "/there/is/none", 1);
    QApplication application(g_argc, g_argv);
    const QWidget widget;
    if (threedmouse::deviceState() != threedmouse::DeviceState_NotStarted)
        return 1;
    const threedmouse::DeviceState_e state = Manager::getInstance().startThreedMouse("device", widget);
    return state == threedmouse::DeviceState_NoLibrary && !threedmouse::isProcessingThreedMouseEvents() ? 0 : 2;
}

} // namespace

TEST(ThreedMouseAbsentDeathTest, WithoutTheLibraryTheStateTellsSoAndNothingIsPrinted)
{
    EXPECT_EXIT(std::exit(listenWithoutTheLibrary()), ::testing::ExitedWithCode(0), "^$");
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
