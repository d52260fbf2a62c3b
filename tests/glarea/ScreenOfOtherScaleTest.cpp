// Two screens side by side, of which the toolkit scales the right one by two: what a window on a notebook meets
// when it is dragged to the display beside it.
#include "integration/toolkit/DisplayScale.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/glarea/Presses.h"
#include "tests/support/Pixels.h"
#include "tests/support/ToolkitWindows.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QPoint>
#include <QSize>

using namespace velmora::sdk::integration;

namespace velmora::test {

namespace {

constexpr QSize Size(200, 150);

class ScreenOfOtherScale : public DrawArea {
protected:
    void SetUp() override
    {
        DrawArea::SetUp();
        const std::vector<QRect> screens = screenGeometries();
        ASSERT_EQ(2u, screens.size());
        left = screens[0].topLeft() + QPoint(30, 40);
        right = screens[1].topLeft() + QPoint(40, 20);
    }

    QPoint left;
    QPoint right;
};

} // namespace

TEST_F(ScreenOfOtherScale, AnAreaThatGoesThereIsDrawnAnewInThePixelsOfThatScreenAndBackAgain)
{
    GLDrawArea area;
    Painter painter(area, Green);
    area.setGeometry(QRect(left, Size));
    ASSERT_TRUE(showAndWait(area));
    ASSERT_TRUE(comesToShow(area, Green));
    EXPECT_EQ(Size, toldSize(area));
    const std::pair<QPoint, QSize> goals[] = {{right, Size * 2}, {left, Size}};
    for (const auto& goal : goals) {
        const QPoint place = goal.first;
        const QSize size = goal.second;
        area.move(place);
        ASSERT_TRUE(waitUntil([&] { return toldSize(area) == size; })) << toldSize(area).width();
        EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(area), Green) == size.width() * size.height(); }));
    }
}

TEST_F(ScreenOfOtherScale, AnAreaInAWindowThatGoesThereFillsItsPlaceThereToo)
{
    QWidget window;
    GLDrawArea area(&window);
    Painter painter(area, Green);
    window.setGeometry(QRect(left, Size));
    area.setGeometry(20, 10, 150, 100);
    ASSERT_TRUE(showAndWait(window));
    ASSERT_TRUE(comesToShow(area, Green));
    const std::pair<QPoint, QSize> goals[] = {{right, area.size() * 2}, {left, area.size()}};
    for (const auto& goal : goals) {
        const QPoint place = goal.first;
        const QSize size = goal.second;
        window.move(place);
        ASSERT_TRUE(waitUntil([&] { return toldSize(area) == size; })) << toldSize(area).width();
        EXPECT_TRUE(
            waitUntil([&] { return countColor(grabFromScreen(window), Green) == size.width() * size.height(); }));
        EXPECT_TRUE(comesToShow(area, Green));
    }
}

TEST_F(ScreenOfOtherScale, PositionsArePixelsOfTheScreenThatTheAreaIsOn)
{
    GLDrawArea area;
    Painter painter(area, Blue);
    Presses presses;
    area.addMouseListener(&presses);
    area.setGeometry(QRect(left, Size));
    ASSERT_TRUE(showAndWait(area));
    area.move(right);
    ASSERT_TRUE(waitUntil([&] { return toldSize(area) == Size * 2; }));
    ASSERT_TRUE(comesToShow(area, Blue));
    click(area, QPoint(60, 70));
    EXPECT_TRUE(waitUntil([&] { return presses.count == 1; }));
    EXPECT_EQ(QPoint(120, 140), presses.last);
    area.removeMouseListener(&presses);
}

} // namespace velmora::test

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_SCREEN_SCALE_FACTORS", "1;2");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
