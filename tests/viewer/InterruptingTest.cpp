// Drawing that takes long, and what a person can do meanwhile.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"
#include "tests/viewer/PictureColours.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

// After Qt, whose enumerators some of Xlib's macros would replace.
#define XK_MISCELLANY
#define XK_LATIN1
#include <X11/keysymdef.h>

using namespace velmora::test;
using velmora::testing::EngineProbe;

namespace {

const char* const Incomplete = "The plot is incomplete.";

/// A window that draws slowly.
class SlowDrawing : public OpenViewer {
protected:
    SlowDrawing() { session->makeDrawingSlow(); }

    bool isWorking() { return VelUtilIsBusy() && button("Stop")->isVisible(); }

    /// Opens a surface that takes seconds and acts once a person can see that it does.
    void openAndMeanwhile(const std::function<void()>& act)
    {
        Onlooker onlooker([this] { return isWorking(); }, act);
        window->openFile(folder.writeGrid(120));
        EXPECT_TRUE(waitUntil([&] { return onlooker.hasActed(); }, 30000));
        EXPECT_TRUE(settle());
    }

    void expectInterrupted()
    {
        EXPECT_TRUE(VelUtilPageIsInterrupted());
        EXPECT_FALSE(button("Stop")->isVisible());
        EXPECT_FALSE(progressBar()->isVisible());
        EXPECT_TRUE(statusBarSays(Incomplete));
        EXPECT_TRUE(button("Finish")->isVisible());
        EXPECT_TRUE(action("F&inish Drawing")->isEnabled());
    }

    void expectFinished()
    {
        EXPECT_TRUE(waitUntil([] { return VelUtilPageIsComplete() == 1; }, 60000));
        EXPECT_TRUE(settle());
        expectSurface(shown());
        EXPECT_FALSE(button("Finish")->isVisible());
        EXPECT_FALSE(action("F&inish Drawing")->isEnabled());
        EXPECT_FALSE(statusBarSays(Incomplete));
    }
};

void pressStop(const QPushButton& stop)
{
    movePointer(stop, stop.rect().center());
    pressButton(1);
    releaseButton(1);
}

} // namespace

TEST_F(SlowDrawing, ShowsHowFarItIsAndEndsComplete)
{
    int first = -1;
    int greatest = -1;
    openAndMeanwhile([&] { first = progressBar()->value(); });
    EXPECT_TRUE(VelUtilPageIsComplete());
    EXPECT_GE(first, 0);
    greatest = progressBar()->value();
    EXPECT_GT(greatest, first);
    EXPECT_FALSE(progressBar()->isVisible());
    EXPECT_FALSE(button("Stop")->isVisible());
    EXPECT_FALSE(button("Finish")->isVisible());
    EXPECT_TRUE(waitUntil([&] { return statusBarSays("Idle"); }));
}

TEST_F(SlowDrawing, DoesNotCallItselfIdle)
{
    ASSERT_TRUE(waitUntil([&] { return statusBarSays("Idle"); }));
    bool idleMeanwhile = true;
    openAndMeanwhile([&] { idleMeanwhile = statusBarSays("Idle"); });
    EXPECT_FALSE(idleMeanwhile);
}

TEST_F(SlowDrawing, IsStoppedByEscapeAndFinishedByTheButton)
{
    openAndMeanwhile([] { typeKey(XK_Escape); });
    expectInterrupted();
    EXPECT_FALSE(statusBarSays("Idle"));
    const QPushButton& finish = *button("Finish");
    click(finish, finish.rect().center());
    expectFinished();
}

TEST_F(SlowDrawing, IsFinishedByTheKeyToo)
{
    EXPECT_FALSE(action("F&inish Drawing")->isEnabled());
    openAndMeanwhile([] { typeKey(XK_Escape); });
    expectInterrupted();
    type(XK_F5);
    expectFinished();
}

TEST_F(SlowDrawing, IsStoppedByAClickOnStop)
{
    openAndMeanwhile([this] { pressStop(*button("Stop")); });
    expectInterrupted();
}

TEST_F(SlowDrawing, IsNotStoppedByAClickBeside)
{
    openAndMeanwhile([this] { click(area(), centre()); });
    EXPECT_TRUE(VelUtilPageIsComplete());
}

TEST_F(SlowDrawing, ADialogThatOpensMeanwhileIsAnsweredAndDoesNotStopIt)
{
    ModalDriver person([](QWidget&) { typeKey(XK_Escape); });
    openAndMeanwhile([this] {
        QMessageBox(QMessageBox::Question, "Question", "Yes?", QMessageBox::Yes | QMessageBox::Cancel, window.get())
            .exec();
    });
    EXPECT_TRUE(person.hasActed());
    EXPECT_FALSE(person.hadToClose());
    EXPECT_TRUE(VelUtilPageIsComplete());
}

TEST_F(SlowDrawing, AShortcutMeanwhileDoesItsWorkOnce)
{
    EngineProbe::startLog();
    openAndMeanwhile([] { typeKey(XK_f); });
    const std::vector<std::string> log = EngineProbe::log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "VelUtilViewFit"), 1);
    EXPECT_TRUE(VelUtilPageIsComplete());
    expectSurface(shown());
}

TEST_F(SlowDrawing, IsNotStoppedByEscapeWhenItIsOver)
{
    open(folder.writeGrid());
    type(XK_Escape);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(VelUtilPageIsComplete());
    EXPECT_FALSE(statusBarSays(Incomplete));
}
