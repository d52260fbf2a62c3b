// Selecting with the rubber band, and the cursors that tell what the mouse does.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"

#include <QApplication>
#include <QLabel>
#include <QRubberBand>
#include <QStatusBar>
#include <algorithm>

using namespace velmora::test;

namespace {

const QRubberBand* visibleBand()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* const widget : widgets)
        if (const QRubberBand* const band = qobject_cast<const QRubberBand*>(widget))
            if (band->isVisible())
                return band;
    return nullptr;
}

/// A window with two lines in it and the tool chosen.
class Selecting : public OpenViewer {
protected:
    Selecting()
    {
        open(folder.writeTable());
        first = picture();
        type(XK_s);
    }

    // Not in the middle of a drawing, during which presses count for nothing.
    void band(const QPoint& from, const QPoint& to)
    {
        EXPECT_TRUE(settle());
        press(from);
        movePointer(area(), to);
        release();
    }
    void bandAroundAll() { band(QPoint(2, 2), area().rect().bottomRight() - QPoint(2, 2)); }

    QPoint emptyCorner() { return QPoint(3, area().height() - 4); }
    bool statusBarTells(int count)
    {
        const QList<QLabel*> labels = window->statusBar()->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [count](const QLabel* label) {
            return label->text().startsWith(QString("%1 selected: ").arg(count));
        });
    }

    QImage first;
};

} // namespace

TEST_F(Selecting, ABandAroundEverythingSelectsItAndShowsIt)
{
    bandAroundAll();
    EXPECT_GE(VelUtilPickGetCount(), 2);
    EXPECT_TRUE(statusBarTells(VelUtilPickGetCount()));
    EXPECT_TRUE(differ(first, picture()));
}

TEST_F(Selecting, TheBandShowsWhileItIsDragged)
{
    press(QPoint(100, 100));
    movePointer(area(), QPoint(180, 160));
    EXPECT_TRUE(waitUntil([] { return visibleBand() && visibleBand()->width() > 70; }));
    ASSERT_TRUE(visibleBand());
    EXPECT_EQ(visibleBand()->mapToGlobal(QPoint()), area().mapToGlobal(QPoint(100, 100)));
    EXPECT_EQ(visibleBand()->size(), QSize(81, 61));
    EXPECT_TRUE(differ(part(first, QRect(90, 90, 100, 80)), part(shown(), QRect(90, 90, 100, 80))))
        << "a person sees it";
    EXPECT_FALSE(differ(part(first, QRect(105, 105, 70, 50)), part(shown(), QRect(105, 105, 70, 50))))
        << "and the plot through it";
    release();
    EXPECT_TRUE(waitUntil([] { return !visibleBand(); }));
}

TEST_F(Selecting, TheBandEndsAtTheEdgesOfTheArea)
{
    press(QPoint(100, 100));
    movePointer(area(), QPoint(-30, -30));
    EXPECT_TRUE(waitUntil([] { return visibleBand() && visibleBand()->width() > 90; }));
    ASSERT_TRUE(visibleBand());
    EXPECT_EQ(visibleBand()->mapToGlobal(QPoint()), area().mapToGlobal(QPoint(0, 0)));
    release();
    EXPECT_TRUE(waitUntil([] { return !visibleBand(); }));
}

TEST_F(Selecting, AClickBesideEverythingDeselects)
{
    bandAroundAll();
    ASSERT_GT(VelUtilPickGetCount(), 0);
    band(emptyCorner(), emptyCorner());
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_FALSE(statusBarTells(0)) << "nothing is nothing to tell";
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(Selecting, WhatIsSelectedIsNamed)
{
    // Left of the axes' numbers there is a title only, and below the plot another.
    const QRect left(QPoint(4, area().height() / 3), QSize(22, area().height() / 3));
    band(left.topLeft(), left.bottomRight());
    EXPECT_TRUE(statusBarSays("1 selected: title of the vertical axis")) << VelUtilPickDescription();
    const QRect middle(QPoint(area().width() / 2 - 40, area().height() / 4), QSize(20, area().height() / 2));
    band(middle.topLeft(), middle.bottomRight());
    EXPECT_TRUE(statusBarSays("2 selected: line rising, line waving")) << VelUtilPickDescription();
    bandAroundAll();
    EXPECT_TRUE(QString(VelUtilPickDescription()).startsWith("line rising, line waving, horizontal axis and "));
    open(folder.writeGrid());
    band(centre() - QPoint(5, 5), centre() + QPoint(5, 5));
    EXPECT_TRUE(statusBarSays("1 selected: surface")) << VelUtilPickDescription();
}

TEST_F(Selecting, EscapeDeselects)
{
    bandAroundAll();
    ASSERT_GT(VelUtilPickGetCount(), 0);
    ASSERT_TRUE(settle());
    type(XK_Escape);
    EXPECT_TRUE(waitUntil([] { return VelUtilPickGetCount() == 0; }));
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(Selecting, EscapeGivesUpTheBandAndKeepsTheSelection)
{
    bandAroundAll();
    const int all = VelUtilPickGetCount();
    ASSERT_TRUE(settle());
    press(emptyCorner());
    EXPECT_TRUE(waitUntil([] { return visibleBand() != nullptr; }));
    type(XK_Escape);
    EXPECT_TRUE(waitUntil([] { return !visibleBand(); }));
    release();
    EXPECT_EQ(VelUtilPickGetCount(), all);
}

TEST_F(Selecting, ShiftAddsAndWithoutItTheSelectionBeginsAnew)
{
    // The rising line ends at the upper right, the waving one crosses the left half.
    const QRect left(QPoint(0, 0), QSize(area().width() / 2, area().height()));
    band(left.topLeft() + QPoint(2, 2), left.bottomRight() - QPoint(2, 2));
    const int onTheLeft = VelUtilPickGetCount();
    ASSERT_GT(onTheLeft, 0);
    pressKey(XK_Shift_L);
    band(emptyCorner(), emptyCorner());
    EXPECT_EQ(VelUtilPickGetCount(), onTheLeft) << "nothing was added";
    bandAroundAll();
    releaseKey(XK_Shift_L);
    EXPECT_GE(VelUtilPickGetCount(), onTheLeft);
    const int all = VelUtilPickGetCount();
    EXPECT_TRUE(statusBarTells(all));
    band(emptyCorner(), emptyCorner());
    EXPECT_EQ(VelUtilPickGetCount(), 0);
}

TEST_F(Selecting, ASurfaceIsSelectedToo)
{
    open(folder.writeGrid());
    const QImage surface = picture();
    band(centre() - QPoint(20, 20), centre() + QPoint(20, 20));
    EXPECT_GT(VelUtilPickGetCount(), 0);
    EXPECT_TRUE(differ(surface, picture()));
}

TEST_F(Selecting, AnotherFileHasNothingSelected)
{
    bandAroundAll();
    const int all = VelUtilPickGetCount();
    ASSERT_TRUE(statusBarTells(all));
    open(folder.writeGrid());
    EXPECT_FALSE(statusBarTells(all));
}

TEST_F(Selecting, TheCursorTellsTheTool)
{
    struct ToolKey {
        unsigned long key;
        QPoint hotSpot;
    };
    for (const ToolKey& tool : {ToolKey{XK_r, QPoint(10, 10)}, ToolKey{XK_z, QPoint(7, 7)}}) {
        type(tool.key);
        EXPECT_TRUE(waitUntil([&] { return area().cursor().hotSpot() == tool.hotSpot; })) << tool.hotSpot.x();
        EXPECT_EQ(area().cursor().shape(), Qt::BitmapCursor);
    }
}

TEST_F(Selecting, TheWaitCursorShowsWhileAFileIsReadAndNoLonger)
{
    session->makeDrawingSlow();
    Qt::CursorShape shape = Qt::ArrowCursor;
    Onlooker onlooker([] { return VelUtilIsBusy() && QApplication::overrideCursor(); },
                      [&] { shape = QApplication::overrideCursor()->shape(); });
    window->openFile(folder.writeGrid(120));
    EXPECT_TRUE(onlooker.hasActed());
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}
