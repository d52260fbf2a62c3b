// Two screens of different sizes side by side, which are one desktop.
#include "integration/services/ManagerMiscService.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/glarea/Presses.h"
#include "tests/support/ToolkitFacts.h"
#include "tests/support/ToolkitWindows.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QPoint>
#include <QSize>

using namespace velmora::sdk::integration;
using velmora::sdk::integration::services::ManagerMiscService;

namespace velmora::test {

namespace {

const QRect Left(0, 0, 800, 600);
const QRect Right(800, 0, 640, 480);

class TwoScreens : public DrawArea {
protected:
    void SetUp() override
    {
        DrawArea::SetUp();
        if (!hasPlatforms() && screenGeometries().size() == 1)
            GTEST_SKIP() << "a Qt 4 that is built without Xinerama knows no second screen";
        ASSERT_EQ((std::vector<QRect>{Left, Right}), screenGeometries());
    }
};

} // namespace

TEST_F(TwoScreens, TheScreenSizeIsThatOfBothTogether)
{
    int width = 0;
    int height = 0;
    ManagerMiscService().getScreenSizeInPixels(&width, &height);
    EXPECT_EQ(1440, width);
    EXPECT_EQ(600, height);
}

TEST_F(TwoScreens, AnAreaOnTheRightOneIsDrawnWholeAndTellsItsOwnPositions)
{
    GLDrawArea area;
    Painter painter(area, Green);
    Presses presses;
    area.addMouseListener(&presses);
    area.setGeometry(Right.x() + 40, 50, 300, 200);
    ASSERT_TRUE(showAndWait(area));
    EXPECT_TRUE(comesToShow(area, Green));
    EXPECT_EQ(QSize(300, 200), toldSize(area));
    click(area, QPoint(7, 11));
    EXPECT_TRUE(waitUntil([&] { return presses.count == 1; }));
    EXPECT_EQ(QPoint(7, 11), presses.last);
    area.removeMouseListener(&presses);
}

TEST_F(TwoScreens, AnAreaAcrossBothIsDrawnWholeAndTellsPositionsOnEachSideOfTheBorder)
{
    GLDrawArea area;
    Painter painter(area, Blue);
    Presses presses;
    area.addMouseListener(&presses);
    area.setGeometry(Right.x() - 150, 60, 300, 200);
    ASSERT_TRUE(showAndWait(area));
    EXPECT_TRUE(comesToShow(area, Blue));
    const QPoint places[] = {QPoint(20, 30), QPoint(149, 100), QPoint(150, 40), QPoint(290, 190)};
    int count = 0;
    for (const QPoint& place : places) {
        click(area, place);
        ++count;
        EXPECT_TRUE(waitUntil([&] { return presses.count == count; }));
        EXPECT_EQ(place, presses.last);
    }
    area.removeMouseListener(&presses);
}

TEST_F(TwoScreens, AnAreaThatGoesToTheOtherScreenKeepsItsPictureAndItsSize)
{
    GLDrawArea area;
    Painter painter(area, Green);
    area.setGeometry(30, 40, 200, 150);
    ASSERT_TRUE(showAndWait(area));
    ASSERT_TRUE(comesToShow(area, Green));
    const QPoint places[] = {Right.topLeft() + QPoint(100, 100), QPoint(60, 70)};
    for (const QPoint& place : places) {
        area.move(place);
        ASSERT_TRUE(waitUntil([&] { return area.geometry().topLeft() == place; }));
        EXPECT_TRUE(comesToShow(area, Green));
        EXPECT_EQ(QSize(200, 150), toldSize(area));
    }
}

} // namespace velmora::test
