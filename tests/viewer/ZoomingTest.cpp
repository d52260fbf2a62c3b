// Zooming to a box, and along one axis.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <cstdlib>

using namespace velmora::test;

namespace {

const char* const Middle = "rising = 10, x = 20";
const char* const Beginning = "rising = 0, x = 0";

class Zooming : public OpenViewer {
protected:
    Zooming() { open(folder.writeTable()); }

    void shiftDrag(const QPoint& from, const QPoint& to)
    {
        EXPECT_TRUE(settle());
        pressKey(XK_Shift_L);
        press(from);
        movePointer(area(), to);
        release();
        releaseKey(XK_Shift_L);
        EXPECT_TRUE(settle());
    }
    void wheelAt(const QPoint& position)
    {
        EXPECT_TRUE(settle());
        movePointer(area(), position);
        wheel(true);
        EXPECT_TRUE(settle());
    }
};

} // namespace

TEST_F(Zooming, ShiftAndDraggingZoomsToTheBox)
{
    const QPoint place = placeOf(Middle);
    ASSERT_FALSE(place.isNull());
    shiftDrag(place - QPoint(50, 40), place + QPoint(50, 40));
    const QPoint zoomed = placeOf(Middle);
    ASSERT_FALSE(zoomed.isNull());
    EXPECT_LT(std::abs(zoomed.x() - centre().x()), 60) << "what was in the middle of the box is in that of the plot";
    EXPECT_LT(std::abs(zoomed.y() - centre().y()), 60);
    EXPECT_TRUE(placeOf(Beginning).isNull());
    EXPECT_EQ(VelUtilPickGetCount(), 0);
}

TEST_F(Zooming, AClickWithShiftZoomsNothing)
{
    const QImage before = picture();
    shiftDrag(centre(), centre());
    movePointer(*window, QPoint(3, 3));
    EXPECT_FALSE(differ(before, picture()));
}

TEST_F(Zooming, EscapeGivesTheBoxUp)
{
    const QImage before = picture();
    pressKey(XK_Shift_L);
    press(centre());
    movePointer(area(), centre() + QPoint(60, 50));
    processPending();
    releaseKey(XK_Shift_L);
    type(XK_Escape);
    release();
    movePointer(*window, QPoint(3, 3));
    EXPECT_FALSE(differ(before, picture()));
}

TEST_F(Zooming, ASurfaceIsZoomedToTheBoxToo)
{
    open(folder.writeGrid());
    const QImage before = picture();
    shiftDrag(centre() - QPoint(60, 40), centre() + QPoint(60, 40));
    movePointer(*window, QPoint(3, 3));
    EXPECT_TRUE(differ(before, picture()));
}

TEST_F(Zooming, TheWheelOverAnAxisZoomsThatAxisAlone)
{
    const QPoint before = placeOf(Middle);
    ASSERT_FALSE(before.isNull());
    wheelAt(QPoint(area().width() / 4, area().height() - 50)); // the numbers of the horizontal axis
    const QPoint across = placeOf(Middle);
    EXPECT_GT(across.x(), before.x() + 20);
    EXPECT_EQ(across.y(), before.y());
    wheelAt(QPoint(45, area().height() * 3 / 4)); // of the vertical one
    const QPoint both = placeOf(Middle);
    EXPECT_EQ(both.x(), across.x());
    EXPECT_LT(both.y(), across.y() - 20);
}
