// The panel that lists the columns.

#include "tests/viewer/OpenViewer.h"

#include "ColumnsPanel.h"
#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/EventWatch.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

using namespace velmora::test;

namespace {

class Columns : public OpenViewer {
protected:
    Columns()
    {
        action("&Columns")->trigger();
        EXPECT_TRUE(waitUntil([this] { return panel().isVisible(); }));
    }

    viewer::ColumnsPanel& panel() { return *window->findChild<viewer::ColumnsPanel*>(); }
    QTreeWidget& lines() { return *panel().findChild<QTreeWidget*>(); }
    QComboBox& axis() { return *panel().findChild<QComboBox*>(); }

    void clickOn(QWidget& widget, const QPoint& position)
    {
        EXPECT_TRUE(settle());
        const EventWatch released(QEvent::MouseButtonRelease);
        click(widget, position);
        released.wait();
    }
    void clickBox(int row)
    {
        const QRect rect = lines().visualItemRect(lines().topLevelItem(row));
        clickOn(*lines().viewport(), QPoint(rect.left() + 10, rect.center().y()));
    }
    bool isChecked(int row) { return lines().topLevelItem(row)->checkState(0) == Qt::Checked; }

    /// Of so many columns, each a little higher than the one before it.
    QString writeTableOf(int columns)
    {
        QByteArray text = "x";
        for (int i = 1; i < columns; ++i)
            text += ",column " + QByteArray::number(i);
        for (int row = 0; row < 3; ++row) {
            text += '\n' + QByteArray::number(row);
            for (int i = 1; i < columns; ++i)
                text += ',' + QByteArray::number(i + row);
        }
        return folder.write("many.csv", text + '\n');
    }

    /// By the keys, in the list that a click on the choice opens.
    void chooseAxis(int steps)
    {
        clickOn(axis(), axis().rect().center());
        ASSERT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
        for (int i = 0; i < steps; ++i)
            typeKey(XK_Down);
        typeKey(XK_Return);
        EXPECT_TRUE(waitUntil([] { return !QApplication::activePopupWidget(); }));
        EXPECT_TRUE(settle());
    }
};

} // namespace

TEST_F(Columns, ACheckBoxHidesALineAndTheLegendChecksItAgain)
{
    open(folder.writeTable());
    ASSERT_EQ(lines().topLevelItemCount(), 2);
    EXPECT_EQ(lines().topLevelItem(1)->text(0), "waving");
    const QImage before = picture();
    clickBox(1);
    EXPECT_TRUE(waitUntil([] { return !VelUtilLineIsShown(2); }));
    EXPECT_TRUE(differ(before, picture()));
    ASSERT_TRUE(settle());
    press(legendEntry(2));
    release();
    EXPECT_TRUE(waitUntil([this] { return isChecked(1); }));
    press(legendEntry(1));
    release();
    EXPECT_TRUE(waitUntil([this] { return !isChecked(0); }));
}

TEST_F(Columns, NoneHidesAllAndAllShowsThem)
{
    open(folder.writeTable());
    clickOn(*button("None"), button("None")->rect().center());
    EXPECT_TRUE(waitUntil([this] { return !isChecked(0) && !isChecked(1); }));
    EXPECT_EQ(VelUtilLineIsShown(1) + VelUtilLineIsShown(2), 0);
    clickOn(*button("All"), button("All")->rect().center());
    EXPECT_TRUE(waitUntil([this] { return isChecked(0) && isChecked(1); }));
    EXPECT_EQ(VelUtilLineIsShown(1) + VelUtilLineIsShown(2), 2);
}

TEST_F(Columns, AnotherColumnIsMadeTheHorizontalAxisAndItsValuesTellIt)
{
    open(folder.writeTable());
    EXPECT_EQ(axis().currentText(), "x");
    chooseAxis(1);
    EXPECT_EQ(axis().currentText(), "rising");
    EXPECT_FALSE(placeOf("waving = 10, rising = 0").isNull());
    EXPECT_EQ(lines().topLevelItem(0)->text(0), "x");
    EXPECT_FALSE(isChecked(0)) << "whose values belong to another scale";
    chooseAxis(1); // its values go to and fro: points
    EXPECT_EQ(axis().currentText(), "waving");
    EXPECT_TRUE(settle());
    EXPECT_TRUE(QString(VelUtilColumnDetails()).contains("points"));
}

TEST_F(Columns, WhatTheLegendHasNoRoomForIsListedToo)
{
    open(writeTableOf(41));
    ASSERT_EQ(lines().topLevelItemCount(), 40);
    EXPECT_EQ(axis().count(), 42) << "and the row number";
    EXPECT_FALSE(lines().topLevelItem(39)->icon(0).isNull());
    lines().scrollToItem(lines().topLevelItem(39));
    clickBox(39);
    EXPECT_TRUE(waitUntil([] { return !VelUtilLineIsShown(40); }));
}

TEST_F(Columns, AGridHasNoneAndAFileThatComesWhileThePanelIsHiddenIsListedLater)
{
    open(folder.writeGrid());
    const QLabel* const nothing = panel().findChild<QLabel*>();
    EXPECT_TRUE(nothing->isVisible());
    EXPECT_EQ(nothing->text(), "A grid has no columns to choose from.");
    EXPECT_FALSE(lines().isVisible());
    action("&Columns")->trigger();
    open(folder.writeTable());
    EXPECT_EQ(lines().topLevelItemCount(), 0);
    action("&Columns")->trigger();
    EXPECT_TRUE(waitUntil([this] { return lines().isVisible() && lines().topLevelItemCount() == 2; }));
    EXPECT_FALSE(nothing->isVisible());
}
