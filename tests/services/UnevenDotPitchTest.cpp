// A screen that has more dots an inch from top to bottom than from left to right.
#include "integration/services/ManagerMiscService.h"

#include <QApplication>
#include <gtest/gtest.h>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

namespace {

const int DotsPerInchAcross = 120;
const int DotsPerInchDown = 144;

int millimeters(int pixels, int dotsPerInch)
{
    return qRound(pixels * 25.4 / dotsPerInch);
}

// Before the application object is made, which asks only once.
void makeDotsUneven()
{
    Display* const display = XOpenDisplay(nullptr);
    const int screen = DefaultScreen(display);
    const int width = DisplayWidth(display, screen);
    const int height = DisplayHeight(display, screen);
    XRRSetScreenSize(display, RootWindow(display, screen), width, height, millimeters(width, DotsPerInchAcross),
                     millimeters(height, DotsPerInchDown));
    XCloseDisplay(display);
}

} // namespace

TEST(UnevenDotPitch, EachDirectionHasItsOwn)
{
    const velmora::sdk::integration::services::ManagerMiscService service;
    double x = 0;
    double y = 0;
    service.getDotPitchPerCm(&x, &y);
    EXPECT_EQ(DotsPerInchAcross / 2.54, x);
    EXPECT_EQ(DotsPerInchDown / 2.54, y);
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    makeDotsUneven();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
