// Which view shows: fit and reset, and the views before.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/XInput.h"

#include <cstdlib>

using namespace velmora::test;

namespace {

class Views : public OpenViewer {
protected:
    void key(unsigned long keySymbol)
    {
        movePointer(*window, QPoint(3, 3));
        type(keySymbol);
        EXPECT_TRUE(settle());
    }
    QImage restingPicture()
    {
        movePointer(*window, QPoint(3, 3));
        return picture();
    }
};

} // namespace

TEST_F(Views, FitKeepsTheDirectionAndResetTurnsBack)
{
    open(folder.writeGrid());
    const QImage first = restingPicture();
    drag(QPoint(90, 30));
    const QImage turned = restingPicture();
    EXPECT_TRUE(differ(first, turned));
    key(XK_minus);
    drag(QPoint(40, 30), 2);
    EXPECT_TRUE(differ(turned, restingPicture()));
    key(XK_f);
    EXPECT_FALSE(differ(turned, restingPicture()));
    key(XK_0);
    EXPECT_FALSE(differ(first, restingPicture()));
}

TEST_F(Views, ADoubleClickFitsAndTurnsNothing)
{
    open(folder.writeGrid());
    drag(QPoint(90, 30));
    const QImage turned = restingPicture();
    key(XK_minus);
    doubleClick(area(), centre());
    EXPECT_FALSE(differ(turned, restingPicture()));
}

TEST_F(Views, FitAndResetShowAllOfLines)
{
    open(folder.writeTable());
    const QImage first = restingPicture();
    for (const unsigned long fitting : {XK_f, XK_0}) {
        key(XK_minus);
        EXPECT_TRUE(differ(first, restingPicture()));
        key(fitting);
        EXPECT_FALSE(differ(first, restingPicture()));
    }
}
