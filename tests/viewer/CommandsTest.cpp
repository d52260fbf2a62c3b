// What the menus and the tool bar offer, when, and by which keys.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/PictureColours.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <algorithm>

using namespace velmora::test;

namespace {

const char* const Turning[] = {"Turn One Step &Back", "&Turn the Surface", "Turn One St&ep On"};
const char* const Outputs[] = {"&Export Image...", "Print Pre&view...", "&Print..."};

class Commands : public OpenViewer {
protected:
    /// Opens the menu with Alt and chooses by the letter.
    void chooseFromMenu(unsigned long menu, unsigned long command)
    {
        typeWith(XK_Alt_L, menu);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
        typeKey(command);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() == nullptr; }));
        processPending();
    }

    template <typename Texts>
    void expectEnabled(const Texts& texts, bool enabled)
    {
        for (const char* const text : texts)
            EXPECT_EQ(action(text)->isEnabled(), enabled) << text;
    }
};

/// With a surface in the window.
class SurfaceCommands : public Commands {
protected:
    SurfaceCommands()
    {
        open(folder.writeGrid());
        first = picture();
    }

    QImage first;
};

QStringList mnemonics(const QList<QAction*>& actions)
{
    QStringList found;
    for (const QAction* const action : actions) {
        const int place = action->text().indexOf('&');
        if (place >= 0)
            found.append(action->text().mid(place + 1, 1).toUpper());
    }
    return found;
}

int countSeparators(const QMenu& menu)
{
    const QList<QAction*> actions = menu.actions();
    return static_cast<int>(
        std::count_if(actions.begin(), actions.end(), [](const QAction* action) { return action->isSeparator(); }));
}

void expectNoneTwice(QStringList keys, const QString& where)
{
    keys.sort();
    EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end())
        << where.toStdString() << ": " << keys.join(" ").toStdString();
}

} // namespace

TEST_F(Commands, AKeyMeansOneCommandOnly)
{
    QStringList keys;
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (const QAction* const action : actions) {
        const QList<QKeySequence> shortcuts = action->shortcuts();
        for (const QKeySequence& shortcut : shortcuts)
            if (action->text() != "Stop Turnin&g") // which has its key in turn with the one that starts it
                keys.append(shortcut.toString());
    }
    EXPECT_GE(keys.size(), 15);
    expectNoneTwice(keys, "the shortcuts");
}

TEST_F(Commands, EveryCommandOfAMenuHasALetterOfItsOwn)
{
    EXPECT_EQ(window->menuBar()->actions().size(), 3);
    expectNoneTwice(mnemonics(window->menuBar()->actions()), "the menu bar");
    const QList<QMenu*> menus = window->menuBar()->findChildren<QMenu*>();
    EXPECT_GE(menus.size(), 8) << "those within others too";
    for (const QMenu* const menu : menus) {
        const QStringList letters = mnemonics(menu->actions());
        expectNoneTwice(letters, menu->title());
        EXPECT_EQ(letters.size(), menu->actions().size() - countSeparators(*menu)) << menu->title().toStdString();
    }
}

TEST_F(SurfaceCommands, ToolTipsNameTheKey)
{
    EXPECT_EQ(tool("&Open...")->toolTip(), "Open (Ctrl+O)");
    EXPECT_EQ(tool("&Rotate")->toolTip(), "Rotate (R)");
    EXPECT_EQ(tool("&Fit")->toolTip(), "Fit (F)");
    EXPECT_EQ(tool("&Turn the Surface")->toolTip(), "Turn the Surface (Space)");
    EXPECT_EQ(tool("Turn One St&ep On")->toolTip(), "Turn One Step On (Ctrl+Right)");
    EXPECT_EQ(button("Stop")->toolTip(), "Stop what is going on (Esc)");
    EXPECT_EQ(button("Finish")->toolTip(), "Draw what is missing (Shift+F5)");
}

TEST_F(Commands, EveryToolHasAnIconAndNamesItsKeyInItsToolTip)
{
    const QList<QAction*> tools = window->findChild<QToolBar*>()->actions();
    int count = 0;
    for (const QAction* const tool : tools) {
        if (tool->isSeparator())
            continue;
        ++count;
        EXPECT_FALSE(tool->icon().pixmap(24, 24).isNull()) << tool->text().toStdString();
        EXPECT_FALSE(tool->shortcut().isEmpty()) << tool->text().toStdString();
        const QString key = '(' + tool->shortcut().toString(QKeySequence::NativeText) + ')';
        EXPECT_TRUE(tool->toolTip().endsWith(key)) << tool->toolTip().toStdString();
    }
    EXPECT_GE(count, 10);
}

TEST_F(Commands, TheToolBarOpensAFile)
{
    Answer<QFileDialog> person([](QFileDialog& dialog) { dialog.reject(); });
    clickTool("&Open...");
    EXPECT_TRUE(waitUntil([&] { return person.hasActed(); }));
    EXPECT_EQ(window->windowTitle().toStdString(), "Viewer");
}

TEST_F(Commands, WithNothingOpenThereIsNothingToPutOut)
{
    EXPECT_TRUE(statusBarSays("Open a table or a grid with File > Open, or drop it here."));
    expectEnabled(Outputs, false);
    expectEnabled(Turning, false);
    EXPECT_TRUE(action("&Rotate")->isEnabled()) << "a surface may come";
    open(folder.writeGrid());
    expectEnabled(Outputs, true);
    expectEnabled(Turning, true);
    EXPECT_TRUE(statusBarSays("hill.asc: 24 x 24 grid, no gaps"));
}

TEST_F(SurfaceCommands, AWindowForWhatIsOpenAlreadyOffersTheSame)
{
    window.reset();
    window = std::make_unique<viewer::MainWindow>();
    ASSERT_TRUE(showAndWait(*window));
    expectEnabled(Outputs, true);
    expectEnabled(Turning, true);
    EXPECT_TRUE(statusBarSays("24 x 24 grid, no gaps"));
}

TEST_F(SurfaceCommands, LinesAreMovedAndDoNotTurn)
{
    open(folder.writeTable());
    expectEnabled(Outputs, true);
    expectEnabled(Turning, false);
    EXPECT_FALSE(action("&Rotate")->isEnabled());
    EXPECT_TRUE(action("&Move")->isChecked());
    const QImage lines = picture();
    drag(QPoint(60, 0));
    EXPECT_TRUE(differ(lines, picture())) << "dragging does something";
    open(folder.writeGrid());
    expectEnabled(Turning, true);
    EXPECT_TRUE(action("&Rotate")->isEnabled());
    EXPECT_TRUE(action("&Rotate")->isChecked());
    drag(QPoint(60, 0));
    const QRect middle(200, 100, 300, 200);
    EXPECT_TRUE(differ(part(first, middle), part(picture(), middle.translated(60, 0)))) << "it turns, and is not moved";
}

TEST_F(SurfaceCommands, AToolThatWasChosenIsKeptForTheNextFile)
{
    for (const unsigned long key : {XK_z, XK_m}) {
        const char* const chosen = key == XK_z ? "&Zoom" : "&Move";
        type(key);
        open(folder.writeTable());
        EXPECT_TRUE(action(chosen)->isChecked());
        open(folder.writeGrid());
        EXPECT_TRUE(action(chosen)->isChecked());
    }
}

TEST_F(SurfaceCommands, AToolThatWasChosenForLinesIsKeptForASurface)
{
    open(folder.writeTable());
    type(XK_z);
    open(folder.writeGrid());
    EXPECT_TRUE(action("&Zoom")->isChecked());
}

TEST_F(SurfaceCommands, LinesEndTheTurning)
{
    type(XK_space);
    ASSERT_TRUE(waitUntil([this] { return action("Stop Turnin&g")->isEnabled(); }));
    // Only for a moment: each step of the turning asks for another picture.
    ASSERT_TRUE(waitUntil([] { return !VelUtilIsBusy() && VelUtilPageIsComplete(); }));
    open(folder.writeTable());
    EXPECT_FALSE(action("Stop Turnin&g")->isEnabled());
    type(XK_space);
    open(folder.writeGrid());
    EXPECT_TRUE(action("&Turn the Surface")->isEnabled());
    EXPECT_FALSE(action("Stop Turnin&g")->isEnabled());
}

TEST_F(SurfaceCommands, TheArrowKeysStepThereAndBack)
{
    typeWith(XK_Control_L, XK_Right);
    const QImage turned = picture();
    EXPECT_TRUE(differ(first, turned));
    typeWith(XK_Control_L, XK_Left);
    EXPECT_FALSE(differ(first, picture()));
    typeWith(XK_Control_L, XK_Left);
    EXPECT_TRUE(differ(turned, picture()));
}

TEST_F(SurfaceCommands, PlusAndMinusZoomAboutTheMiddle)
{
    const int before = plotPixels(first);
    typeWith(XK_Shift_L, XK_plus);
    EXPECT_GT(plotPixels(picture()), before * 5 / 4);
    type(XK_minus);
    EXPECT_FALSE(differ(first, picture()));
    type(XK_minus);
    EXPECT_LT(plotPixels(picture()), before * 9 / 10);
    type(XK_KP_Add);
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(SurfaceCommands, ThePageShowsWhenItIsAskedFor)
{
    EXPECT_FALSE(action("Show &Page")->isChecked());
    chooseFromMenu(XK_v, XK_p);
    EXPECT_TRUE(action("Show &Page")->isChecked());
    EXPECT_TRUE(differ(first, picture()));
    chooseFromMenu(XK_v, XK_p);
    EXPECT_FALSE(action("Show &Page")->isChecked());
    EXPECT_FALSE(differ(first, picture()));
}
