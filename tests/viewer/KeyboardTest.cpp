// What the pointer does with the picture, done with the keys.

#include "tests/viewer/OpenViewer.h"

#include "ColumnsPanel.h"
#include "engine/VelUtil.h"
#include "tests/support/AccessibleText.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QAction>
#include <QApplication>
#include <QTreeWidget>
#include <cstdlib>

using namespace velmora::test;

namespace {

const char* const Middle = "rising = 10, x = 20";

class Keyboard : public OpenViewer {
protected:
    static std::string view() { return VelUtilViewState(); }

    void key(unsigned long keySymbol)
    {
        type(keySymbol);
        EXPECT_TRUE(settle());
    }
    void keyWithShift(unsigned long keySymbol)
    {
        typeWith(XK_Shift_L, keySymbol);
        EXPECT_TRUE(settle());
    }

    /// Opens the menu View with Alt, and in it goes by the letters.
    void chooseFromView(unsigned long submenu, unsigned long command)
    {
        typeWith(XK_Alt_L, XK_v);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
        typeKey(submenu);
        typeKey(command);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() == nullptr; }));
        EXPECT_TRUE(settle());
    }

    QImage restingPicture()
    {
        movePointer(*window, QPoint(3, 3));
        return picture();
    }
};

class SurfaceByKeys : public Keyboard {
protected:
    SurfaceByKeys() { open(folder.writeGrid()); }

    /// The two keys undo each other, and two steps of the second do what dragging this way does.
    void expectSteps(unsigned long there, unsigned long back, const QPoint& way)
    {
        const std::string first = view();
        const QImage before = restingPicture();
        key(there);
        EXPECT_TRUE(differ(before, restingPicture()));
        key(back);
        EXPECT_EQ(view(), first);
        EXPECT_FALSE(differ(before, restingPicture()));
        key(back);
        key(back);
        const std::string stepped = view();
        key(there);
        key(there);
        drag(way);
        EXPECT_EQ(view(), stepped);
        EXPECT_NE(view(), first);
    }
};

class LinesByKeys : public Keyboard {
protected:
    LinesByKeys() { open(folder.writeTable()); }

    /// A value in the picture moves by a twentieth of the area, this way.
    void expectMoved(const QPoint& direction, const QPoint& before)
    {
        const QPoint moved = placeOf(Middle) - before;
        EXPECT_LT(std::abs(moved.x() - direction.x() * area().width() / 20), 3) << moved.x();
        EXPECT_LT(std::abs(moved.y() - direction.y() * area().height() / 20), 3) << moved.y();
    }
};

class PanelByKeys : public LinesByKeys {
protected:
    PanelByKeys()
    {
        typeWith(XK_Alt_L, XK_v);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
        typeKey(XK_c);
        EXPECT_TRUE(waitUntil([this] { return list().hasFocus(); }));
        EXPECT_TRUE(settle());
    }

    QTreeWidget& list() { return *window->findChild<viewer::ColumnsPanel*>()->findChild<QTreeWidget*>(); }
    static bool areShown(bool rising, bool waving)
    {
        return waitUntil([&] { return VelUtilLineIsShown(1) == rising && VelUtilLineIsShown(2) == waving; });
    }
};

} // namespace

TEST_F(SurfaceByKeys, LeftAndRightTurnItAsDraggingSidewaysDoes)
{
    expectSteps(XK_Left, XK_Right, QPoint(25, 0));
}

TEST_F(SurfaceByKeys, UpAndDownTiltItAsDraggingUpAndDownDoes)
{
    expectSteps(XK_Up, XK_Down, QPoint(0, 25));
}

TEST_F(SurfaceByKeys, ShiftAndTheArrowsMoveIt)
{
    const QImage first = restingPicture();
    const QRect middle(200, 120, 250, 200);
    const QPoint across(area().width() / 20 * 2, 0);
    keyWithShift(XK_Right);
    keyWithShift(XK_Right);
    EXPECT_TRUE(differ(first, restingPicture()));
    EXPECT_FALSE(differ(part(first, middle), part(restingPicture(), middle.translated(across))));
    keyWithShift(XK_Left);
    keyWithShift(XK_Left);
    EXPECT_FALSE(differ(first, restingPicture()));
    keyWithShift(XK_Up);
    EXPECT_TRUE(differ(first, restingPicture()));
    keyWithShift(XK_Down);
    EXPECT_FALSE(differ(first, restingPicture()));
}

TEST_F(SurfaceByKeys, TheMenuHasTheStepsToo)
{
    const std::string first = view();
    chooseFromView(XK_l, XK_d);
    const std::string tilted = view();
    EXPECT_NE(tilted, first);
    key(XK_Up);
    EXPECT_EQ(view(), first);
    chooseFromView(XK_l, XK_o);
    EXPECT_NE(view(), first);
    EXPECT_NE(view(), tilted);
    keyWithShift(XK_Up);
    EXPECT_EQ(view(), first);
}

TEST_F(SurfaceByKeys, InTheMenuBarTheArrowsAreTheMenus)
{
    const std::string first = view();
    type(XK_Alt_L);
    typeKey(XK_Right);
    typeKey(XK_Down);
    EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(view(), first);
}

TEST_F(LinesByKeys, AreMovedByTheArrowsWithAndWithoutShift)
{
    EXPECT_FALSE(action("Turn &Left")->isEnabled());
    struct Arrow {
        unsigned long key;
        QPoint direction;
    };
    for (const Arrow& arrow : {Arrow{XK_Right, QPoint(1, 0)}, Arrow{XK_Left, QPoint(-1, 0)},
                               Arrow{XK_Up, QPoint(0, -1)}, Arrow{XK_Down, QPoint(0, 1)}}) {
        QPoint before = placeOf(Middle);
        key(arrow.key);
        expectMoved(arrow.direction, before);
        before = placeOf(Middle);
        keyWithShift(arrow.key);
        expectMoved(arrow.direction, before);
    }
}

TEST_F(Keyboard, ASurfaceThatComesAfterLinesIsTurnedByTheArrows)
{
    open(folder.writeTable());
    key(XK_Right);
    open(folder.writeGrid());
    const QImage first = restingPicture();
    key(XK_Right);
    key(XK_Right);
    const std::string stepped = view();
    key(XK_0);
    EXPECT_FALSE(differ(first, restingPicture()));
    drag(QPoint(25, 0));
    EXPECT_EQ(view(), stepped);
}

TEST_F(LinesByKeys, AreSelectedOneAfterTheOtherAndTheirNamesTold)
{
    const QImage first = restingPicture();
    const QString file = "lines.csv: 2 lines, 40 rows";
    key(XK_n);
    EXPECT_TRUE(statusBarSays("1 selected: line rising")) << VelUtilPickDescription();
    EXPECT_EQ(accessibleDescriptionOf(area()), "1 selected: line rising. " + file);
    EXPECT_TRUE(differ(first, restingPicture()));
    key(XK_n);
    EXPECT_TRUE(statusBarSays("1 selected: line waving")) << VelUtilPickDescription();
    EXPECT_EQ(accessibleDescriptionOf(area()), "1 selected: line waving. " + file);
    keyWithShift(XK_n);
    EXPECT_TRUE(statusBarSays("1 selected: line rising")) << VelUtilPickDescription();
    key(XK_Escape);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_EQ(accessibleDescriptionOf(area()), file);
    EXPECT_FALSE(differ(first, restingPicture()));
}

TEST_F(LinesByKeys, AreSelectedAllTogetherAndFromTheMenu)
{
    typeWith(XK_Control_L, XK_a);
    EXPECT_GE(VelUtilPickGetCount(), 6);
    EXPECT_TRUE(QString(VelUtilPickDescription()).startsWith("line rising, line waving, horizontal axis and "));
    key(XK_Escape);
    chooseFromView(XK_j, XK_p);
    EXPECT_EQ(VelUtilPickGetCount(), 1);
    const std::string last = VelUtilPickDescription();
    EXPECT_EQ(last, "legend entry waving");
    chooseFromView(XK_j, XK_n);
    EXPECT_STREQ(VelUtilPickDescription(), "line rising");
}

TEST_F(SurfaceByKeys, IsSelectedToo)
{
    key(XK_n);
    EXPECT_TRUE(statusBarSays("1 selected: surface")) << VelUtilPickDescription();
}

TEST_F(Keyboard, WithoutDataThereIsNothingToSelectOrToMove)
{
    for (const char* const text : {"Select &Next", "Select &Previous", "Select &All", "Turn &Left", "Move Le&ft"})
        EXPECT_FALSE(action(text)->isEnabled()) << text;
    type(XK_n);
    EXPECT_EQ(accessibleDescriptionOf(area()), "Open a table or a grid with File > Open, or drop it here.");
}

TEST_F(PanelByKeys, SpaceHidesALineAndShowsItAgain)
{
    typeKey(XK_Down);
    typeKey(XK_space);
    EXPECT_TRUE(areShown(true, false));
    typeKey(XK_space);
    EXPECT_TRUE(areShown(true, true));
}

TEST_F(PanelByKeys, ReturnShowsALineAloneAndAllAgain)
{
    const QImage first = restingPicture();
    for (const unsigned long key : {XK_Return, XK_KP_Enter}) {
        typeKey(XK_Down);
        typeKey(key);
        EXPECT_TRUE(areShown(false, true));
        EXPECT_EQ(list().topLevelItem(0)->checkState(0), Qt::Unchecked);
        EXPECT_TRUE(differ(first, restingPicture()));
        typeKey(key);
        EXPECT_TRUE(areShown(true, true));
        EXPECT_FALSE(differ(first, restingPicture()));
    }
}

TEST_F(PanelByKeys, TheArrowsAreTheListsUntilTabGoesOnToThePlot)
{
    const std::string first = view();
    typeKey(XK_Down);
    EXPECT_TRUE(waitUntil([this] { return list().currentItem() == list().topLevelItem(1); }));
    EXPECT_EQ(view(), first);
    for (int parts = 0; parts < 5 && !area().hasFocus(); ++parts) {
        const QWidget* const before = QApplication::focusWidget();
        typeKey(XK_Tab);
        EXPECT_TRUE(waitUntil([before] { return QApplication::focusWidget() != before; }));
    }
    EXPECT_TRUE(area().hasFocus());
    key(XK_Right);
    EXPECT_NE(view(), first);
}
