// The panel that tells about the file.

#include "tests/viewer/OpenViewer.h"

#include "AboutFilePanel.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/EventWatch.h"

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTableWidget>

using namespace velmora::test;

namespace {

class AboutFile : public OpenViewer {
protected:
    AboutFile()
    {
        action("&About This File")->trigger();
        EXPECT_TRUE(waitUntil([this] { return panel().isVisible(); }));
    }

    viewer::AboutFilePanel& panel() { return *window->findChild<viewer::AboutFilePanel*>(); }
    QTableWidget& table() { return *panel().findChild<QTableWidget*>(); }
    QPlainTextEdit& notes() { return *panel().findChild<QPlainTextEdit*>(); }
    std::string cell(int row, int column) { return table().item(row, column)->text().toStdString(); }

    QString weather()
    {
        return folder.write("weather.csv", "day,speed,weather\nd,m/s,\n1,4,fair\n2,,rainy\n3,9,fair\n");
    }
    static void typeWithControl(unsigned long key)
    {
        pressKey(XK_Control_L);
        typeKey(key);
        releaseKey(XK_Control_L);
    }
};

} // namespace

TEST_F(AboutFile, EachColumnIsToldWithWhatItHoldsAndWhyItIsLeftOut)
{
    open(weather());
    ASSERT_EQ(table().rowCount(), 3);
    EXPECT_EQ(table().horizontalHeaderItem(5)->text(), "Smallest");
    EXPECT_EQ(cell(1, 0), "speed");
    EXPECT_EQ(cell(1, 1), "m/s");
    EXPECT_EQ(cell(1, 3), "2");
    EXPECT_EQ(cell(1, 4), "1");
    EXPECT_EQ(cell(1, 6), "9");
    EXPECT_NE(cell(2, 7), "");
    EXPECT_TRUE(notes().isVisible());
    EXPECT_TRUE(notes().toPlainText().contains("\"weather\"")) << notes().toPlainText().toStdString();
}

TEST_F(AboutFile, AGridIsToldByItsProperties)
{
    open(folder.writeGrid());
    EXPECT_EQ(table().columnCount(), 2);
    EXPECT_FALSE(table().horizontalHeader()->isVisible());
    EXPECT_EQ(cell(0, 0), "Rows");
    EXPECT_EQ(cell(0, 1), "24");
    EXPECT_FALSE(notes().isVisible()) << "nothing is to be noted";
}

TEST_F(AboutFile, TheStatusBarTellsHowManyNotesThereAreAndThePanelKeepsThem)
{
    open(weather());
    EXPECT_EQ(note(), "1 note: see View > About This File");
    open(folder.write("more.csv", "x,y,a,b\n1,2,p,q\n2,3,r,s\n"));
    EXPECT_EQ(note(), "2 notes: see View > About This File");
    window->statusBar()->clearMessage();
    EXPECT_TRUE(notes().toPlainText().contains("\"b\""));
}

TEST_F(AboutFile, CellsAndNotesAreCopied)
{
    open(weather());
    EXPECT_TRUE(settle());
    const QRect first = table().visualItemRect(table().item(0, 0));
    click(*table().viewport(), first.center());
    EXPECT_TRUE(waitUntil([this] { return table().hasFocus(); }));
    pressKey(XK_Shift_L);
    typeKey(XK_Right);
    typeKey(XK_Down);
    releaseKey(XK_Shift_L);
    EXPECT_TRUE(waitUntil([this] { return table().selectedItems().size() == 4; }));
    typeWithControl(XK_c);
    EXPECT_TRUE(waitUntil([] { return QApplication::clipboard()->text() == "day\td\nspeed\tm/s"; }))
        << QApplication::clipboard()->text().toStdString();
    click(*notes().viewport(), QPoint(8, 8));
    EXPECT_TRUE(waitUntil([this] { return notes().hasFocus(); }));
    typeWithControl(XK_a);
    typeWithControl(XK_c);
    EXPECT_TRUE(waitUntil([this] { return QApplication::clipboard()->text() == notes().toPlainText(); }));
}

TEST_F(AboutFile, WithoutAFileThePanelSaysSo)
{
    EXPECT_EQ(notes().toPlainText(), "No file is open.");
    EXPECT_FALSE(table().isVisible());
}
