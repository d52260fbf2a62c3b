// Logarithmic axes of lines.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/XInput.h"

#include <QAction>
#include <cstdlib>

using namespace velmora::test;

namespace {

const char* const LogX = "Logarithmic &x";
const char* const LogY = "Logarithmic &y";

class AxisScaling : public OpenViewer {
protected:
    void openTable(const char* content) { open(folder.write("steep.csv", content)); }
    void press(unsigned long key)
    {
        movePointer(*window, QPoint(3, 3));
        type(key);
        EXPECT_TRUE(settle());
    }
};

} // namespace

TEST_F(AxisScaling, AKeyMakesAnAxisLogarithmicAndLinearAgain)
{
    openTable("t,growth\n1,1\n2,10\n3,100\n4,1000\n5,10000\n");
    const QPoint before = placeOf("growth = 100, t = 3");
    ASSERT_FALSE(before.isNull());
    press(XK_y);
    EXPECT_TRUE(action(LogY)->isChecked());
    EXPECT_FALSE(action(LogX)->isChecked());
    const QPoint low = placeOf("growth = 10, t = 2");
    const QPoint middle = placeOf("growth = 100, t = 3");
    const QPoint high = placeOf("growth = 1000, t = 4");
    EXPECT_LT(middle.y(), before.y() - 100);
    EXPECT_LE(std::abs((low.y() - middle.y()) - (middle.y() - high.y())), 2) << "evenly apart";
    EXPECT_EQ(note(), "");
    press(XK_y);
    EXPECT_FALSE(action(LogY)->isChecked());
    EXPECT_EQ(placeOf("growth = 100, t = 3"), before);
    press(XK_x);
    EXPECT_TRUE(action(LogX)->isChecked());
    EXPECT_GT(placeOf("growth = 100, t = 3").x(), before.x() + 20);
}

TEST_F(AxisScaling, TheStatusBarTellsHowManyValuesAreNotShown)
{
    openTable("t,a,b\n1,1,-1\n2,0,5\n3,-100,7\n4,10,9\n");
    press(XK_y);
    EXPECT_TRUE(action(LogY)->isChecked());
    EXPECT_EQ(note(), "Values that are not shown because they are not above 0: 3.");
    press(XK_y);
    EXPECT_EQ(note(), "");
}

TEST_F(AxisScaling, AnAxisWithoutAPositiveValueStaysLinearAndTheStatusBarSaysWhy)
{
    openTable("t,depth\n1,-1\n2,0\n3,-100\n");
    press(XK_y);
    EXPECT_FALSE(action(LogY)->isChecked());
    EXPECT_TRUE(action(LogY)->isEnabled());
    EXPECT_NE(note().find("The y axis stays linear: no value"), std::string::npos) << note();
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
}

TEST_F(AxisScaling, DatesAndSurfacesHaveNoLogarithm)
{
    EXPECT_FALSE(action(LogY)->isEnabled()) << "nothing is shown yet";
    openTable("day,a\n2026-03-01,1\n2026-03-02,2\n2026-03-03,3\n");
    EXPECT_FALSE(action(LogX)->isEnabled());
    EXPECT_TRUE(action(LogY)->isEnabled());
    EXPECT_EQ(VelUtilAxisSetLogarithmic(0, 1), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("dates have no logarithm"), std::string::npos);
    press(XK_y);
    EXPECT_TRUE(action(LogY)->isChecked());
    open(folder.writeGrid());
    EXPECT_FALSE(action(LogY)->isEnabled());
    EXPECT_FALSE(action(LogY)->isChecked());
    EXPECT_EQ(VelUtilAxisSetLogarithmic(1, 1), 0);
}

TEST_F(AxisScaling, NewDataBeginWithLinearAxes)
{
    open(folder.writeTable());
    press(XK_y);
    EXPECT_TRUE(action(LogY)->isChecked());
    open(folder.writeTable());
    EXPECT_FALSE(action(LogY)->isChecked());
    EXPECT_EQ(VelUtilAxisSetLogarithmic(2, 1), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("no axis 2"), std::string::npos);
}
