// What is in the menu of surfaces: directions, heights and colours.

#include "tests/viewer/OpenViewer.h"

#include "ScreenPixels.h"
#include "engine/VelUtil.h"
#include "tests/support/XInput.h"

#include <QAction>

using namespace velmora::test;

namespace {

class SurfaceMenu : public OpenViewer {
protected:
    SurfaceMenu() { open(folder.writeGrid()); }

    static std::string view() { return VelUtilViewState(); }
    std::string valueInTheMiddle()
    {
        const double scale = viewer::screenPixelsPerPixel(window->drawArea());
        return VelUtilViewValueAt(centre().x() * scale, centre().y() * scale, nullptr, nullptr);
    }
    QImage restingPicture()
    {
        movePointer(*window, QPoint(3, 3));
        return picture();
    }
    QImage pictureAfter(unsigned long keySymbol)
    {
        movePointer(*window, QPoint(3, 3));
        type(keySymbol);
        return picture();
    }
};

} // namespace

TEST_F(SurfaceMenu, KeysShowTheMapTheFrontTheSideAndTheFirstViewAgain)
{
    const std::string firstView = view();
    const QImage first = restingPicture();
    const QImage map = pictureAfter(XK_1);
    const QImage front = pictureAfter(XK_2);
    const QImage side = pictureAfter(XK_3);
    EXPECT_TRUE(differ(first, map));
    EXPECT_TRUE(differ(map, front));
    EXPECT_TRUE(differ(front, side));
    EXPECT_FALSE(differ(map, pictureAfter(XK_1)));
    EXPECT_FALSE(differ(first, pictureAfter(XK_0)));
    EXPECT_EQ(view(), firstView);
}

TEST_F(SurfaceMenu, DraggingTurnsTheMapInPerspectiveAgain)
{
    pictureAfter(XK_1);
    EXPECT_EQ(view(), "surface 0 90 1 0 0 1");
    drag(QPoint(0, -100));
    EXPECT_EQ(view(), "surface 0 50 1 0 0 0");
}

TEST_F(SurfaceMenu, HeightsAreExaggeratedAndTheValueUnderThePointerIsTrue)
{
    pictureAfter(XK_1);
    const std::string value = valueInTheMiddle();
    EXPECT_NE(value, "");
    const QImage first = pictureAfter(XK_0);
    EXPECT_TRUE(action("&1 (as by Itself)")->isChecked());
    action("&5 Times")->trigger();
    EXPECT_TRUE(differ(first, restingPicture()));
    EXPECT_TRUE(action("&5 Times")->isChecked());
    EXPECT_FALSE(action("&1 (as by Itself)")->isChecked());
    pictureAfter(XK_1);
    EXPECT_EQ(valueInTheMiddle(), value);
    open(folder.writeGrid());
    EXPECT_TRUE(action("&1 (as by Itself)")->isChecked()) << "other data, other heights";
}

TEST_F(SurfaceMenu, AKeyKeepsTheColoursForTheMiddleHeights)
{
    const QImage first = restingPicture();
    const QImage clipped = pictureAfter(XK_c);
    EXPECT_TRUE(action("&Colours from 2 to 98 %")->isChecked());
    EXPECT_TRUE(differ(first, clipped));
    EXPECT_FALSE(differ(first, pictureAfter(XK_c)));
    EXPECT_FALSE(action("&Colours from 2 to 98 %")->isChecked());
}

TEST_F(SurfaceMenu, LinesHaveNothingOfIt)
{
    open(folder.writeTable());
    for (const char* const text : {"&Map View", "&Front View", "&Side View", "&5 Times", "&Colours from 2 to 98 %"})
        EXPECT_FALSE(action(text)->isEnabled()) << text;
    open(folder.writeGrid());
    EXPECT_TRUE(action("&Map View")->isEnabled());
}
