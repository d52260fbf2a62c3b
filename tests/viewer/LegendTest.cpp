// Clicks on the entries of the legend.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/EventWatch.h"

using namespace velmora::test;

namespace {

/// A window with two lines: 1 rises, 2 waves.
class Legend : public OpenViewer {
protected:
    Legend()
    {
        open(folder.writeTable());
        movePointer(*window, QPoint(3, 3)); // in the menu bar
        first = picture();
    }

    void clickEntry(int line)
    {
        EXPECT_TRUE(settle());
        press(legendEntry(line));
        release();
    }
    void doubleClickEntry(int line)
    {
        EXPECT_TRUE(settle());
        const EventWatch pressed(QEvent::MouseButtonDblClick);
        doubleClick(area(), legendEntry(line));
        pressed.wait();
        processPending();
    }
    bool isShown(bool one, bool two)
    {
        return waitUntil([&] { return VelUtilLineIsShown(1) == one && VelUtilLineIsShown(2) == two; }, 3000);
    }
    QImage pictureWithoutPointer()
    {
        movePointer(*window, QPoint(3, 3));
        return picture();
    }

    QImage first;
};

} // namespace

TEST_F(Legend, AClickHidesALineAndAnotherShowsItAgain)
{
    clickEntry(2);
    EXPECT_TRUE(isShown(true, false));
    EXPECT_TRUE(differ(first, pictureWithoutPointer()));
    clickEntry(2);
    EXPECT_TRUE(isShown(true, true));
    EXPECT_FALSE(differ(first, pictureWithoutPointer()));
}

TEST_F(Legend, ADoubleClickShowsALineAloneAndAnotherShowsAll)
{
    doubleClickEntry(1);
    EXPECT_TRUE(isShown(true, false));
    type(XK_z); // so that the next press is not taken for a third click
    ASSERT_TRUE(settle());
    press(QPoint(3, 3));
    release();
    doubleClickEntry(1);
    EXPECT_TRUE(isShown(true, true));
    EXPECT_FALSE(differ(first, pictureWithoutPointer())) << "and the view is what it was";
}

TEST_F(Legend, TheToolToSelectSelectsTheLegend)
{
    type(XK_s);
    clickEntry(1);
    EXPECT_TRUE(isShown(true, true));
    EXPECT_EQ(QString(VelUtilPickDescription()).left(6), "legend");
}

TEST_F(Legend, AHiddenLineIsNotSelectedAndALineThatIsNotThereIsAnError)
{
    type(XK_s);
    EXPECT_TRUE(settle());
    press(QPoint(3, 3));
    movePointer(area(), area().rect().bottomRight() - QPoint(3, 3));
    release();
    EXPECT_TRUE(QString(VelUtilPickDescription()).startsWith("line rising, line waving"));
    EXPECT_EQ(VelUtilLineShow(2, 0), 1);
    EXPECT_FALSE(QString(VelUtilPickDescription()).contains("line waving"));
    EXPECT_EQ(VelUtilLineShow(3, 0), 0);
    EXPECT_STREQ(VelUtilLastErrorMessage(), "There is no line 3: the page shows 2 lines. Count them from 1.");
}
