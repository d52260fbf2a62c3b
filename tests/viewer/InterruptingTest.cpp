// A picture that takes long to refine, and what a person can do meanwhile: everything.

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
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

using namespace velmora::test;
using velmora::testing::EngineProbe;

namespace {

/// A window whose pictures are refined slowly.
class SlowRefining : public OpenViewer {
protected:
    SlowRefining()
    {
        open(folder.writeGrid(120));
        EXPECT_TRUE(waitUntil([&] { return statusBarSays("Idle"); }));
        session->makeDrawingSlow();
    }

    /// Changes the view and acts while its coarse picture is refined.
    void changeViewAndMeanwhile(const std::function<void()>& act)
    {
        Onlooker onlooker([] { return !VelUtilIsBusy() && !VelUtilPageIsComplete(); }, act);
        VelUtilViewRotate(10, 0);
        window->drawArea().update();
        EXPECT_TRUE(waitUntil([&] { return onlooker.hasActed(); }, 30000));
        EXPECT_TRUE(settle());
        EXPECT_TRUE(VelUtilPageIsComplete());
        expectSurface(shown());
    }

    /// Without those of the mark at the pointer.
    static std::vector<std::string> viewCalls()
    {
        std::vector<std::string> calls;
        for (const std::string& call : EngineProbe::log())
            if (call.rfind("VelUtilView", 0) == 0 && call != "VelUtilViewMark" && call != "VelUtilViewUnmark")
                calls.push_back(call);
        return calls;
    }
};

} // namespace

TEST_F(SlowRefining, IsNoWorkToStopAndNothingIsMissingMeanwhile)
{
    changeViewAndMeanwhile([this] {
        EXPECT_FALSE(button("Stop")->isVisible());
        EXPECT_FALSE(progressBar()->isVisible());
        EXPECT_FALSE(button("Finish")->isVisible());
        expectSurface(shown());
    });
}

TEST_F(SlowRefining, IsFollowedByIdleTime)
{
    changeViewAndMeanwhile([] {});
    EXPECT_TRUE(waitUntil([&] { return statusBarSays("Idle"); }));
}

TEST_F(SlowRefining, AMenuOpensMeanwhile)
{
    bool opened = false;
    changeViewAndMeanwhile([&] {
        const QAction& viewMenu = *window->menuBar()->actions().at(1);
        click(*window->menuBar(), window->menuBar()->actionGeometry(const_cast<QAction*>(&viewMenu)).center());
        opened = waitUntil([] { return QApplication::activePopupWidget() != nullptr; });
        typeKey(XK_Escape);
        EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() == nullptr; }));
    });
    EXPECT_TRUE(opened);
}

TEST_F(SlowRefining, AShortcutMeanwhileDoesItsWorkOnce)
{
    EngineProbe::startLog();
    changeViewAndMeanwhile([] { typeKey(XK_f); });
    EXPECT_EQ(viewCalls(), (std::vector<std::string>{"VelUtilViewRotate", "VelUtilViewShowAll"}));
}

TEST_F(SlowRefining, ADragAndAWheelMeanwhileDoTheirWorkOnceAndInOrder)
{
    movePointer(area(), centre());
    processPending();
    EngineProbe::startLog();
    changeViewAndMeanwhile([this] {
        pressButton(1);
        movePointer(area(), centre() + QPoint(30, 0));
        releaseButton(1);
        pressButton(4); // a notch of the wheel
        releaseButton(4);
        EXPECT_TRUE(waitUntil([] { return viewCalls().back() == "VelUtilViewZoom"; }));
    });
    const std::vector<std::string> expected = {"VelUtilViewRotate", "VelUtilViewRotate", "VelUtilViewZoomAxis",
                                               "VelUtilViewZoom"};
    EXPECT_EQ(viewCalls(), expected);
}

TEST_F(SlowRefining, ADialogThatOpensMeanwhileIsAnswered)
{
    ModalDriver person([](QWidget&) { typeKey(XK_Escape); });
    changeViewAndMeanwhile([this] {
        QMessageBox(QMessageBox::Question, "Question", "Yes?", QMessageBox::Yes | QMessageBox::Cancel, window.get())
            .exec();
    });
    EXPECT_TRUE(person.hasActed());
    EXPECT_FALSE(person.hadToClose());
}

TEST_F(SlowRefining, AnotherFileCanBeOpenedMeanwhile)
{
    const QString other = folder.writeGrid(30);
    changeViewAndMeanwhile([&] { window->openFile(other); });
    EXPECT_STREQ(VelUtilDataDescription(), "30 x 30 grid, no gaps");
}

TEST_F(SlowRefining, EscapeIsNoInterruption)
{
    changeViewAndMeanwhile([] { typeKey(XK_Escape); });
    EXPECT_FALSE(VelUtilPageIsInterrupted());
    EXPECT_FALSE(statusBarSays("The plot is incomplete."));
}
