// A person and the stop buttons while the engine works.
#include "integration/StopButton.h"
#include "tests/intern/RealInputFixture.h"

#include <boost/make_shared.hpp>

// After Qt, whose enumerators some of Xlib's macros would replace.
#define XK_MISCELLANY
#define XK_LATIN1
#include <X11/keysymdef.h>

using namespace velmora::test;
using velmora::sdk::integration::StopButton;
using velmora::testing::EngineProbe;

TEST_F(RealInput, APressOfAStopButtonInForceReachesItAndStopsTheWork)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    monitor.registerStopButton(stopButton);
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([&] { return window.button->underMouse(); }));
    typeKey(XK_Escape); // which is not enough now
    pressButton(1);
    EXPECT_TRUE(work());
    EXPECT_TRUE(window.button->isDown());
    releaseButton(1);
    EXPECT_TRUE(waitUntil([&] { return !window.button->isDown(); }));
}

TEST_F(RealInput, AHiddenDisabledOrDestroyedStopButtonIsNotInForce)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    monitor.registerStopButton(stopButton);
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.isEngineInterruptible());
    window.button->setEnabled(false);
    EXPECT_TRUE(monitor.isEngineInterruptible());
    window.button->setEnabled(true);
    window.button->hide();
    EXPECT_TRUE(monitor.isEngineInterruptible());
    window.button->show();
    EXPECT_FALSE(monitor.isEngineInterruptible());
    delete window.button;
    EXPECT_TRUE(monitor.isEngineInterruptible());
    EngineProbe::setBusy(false);
    typeKey(XK_Escape);
    EXPECT_TRUE(work());
}

TEST_F(RealInput, AStopButtonDestroyedUnderThePointerLeavesNoCursorBehind)
{
    auto stopButton = boost::make_shared<StopButton>(window.button);
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor() != nullptr; }));
    delete window.button;
    stopButton.reset();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}
