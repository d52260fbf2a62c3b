// Back and forward through the views.

#include "tests/viewer/OpenViewer.h"

#include "ViewHistory.h"
#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QAction>

using namespace velmora::test;

namespace {

class History : public OpenViewer {
protected:
    static std::string view() { return VelUtilViewState(); }
    bool canGoBack() const { return action("Bac&k")->isEnabled(); }
    bool canGoForward() const { return action("For&ward")->isEnabled(); }
    bool isAtRest() const { return window->findChild<viewer::ViewHistory*>()->isAtRest(); }

    void go(unsigned long key)
    {
        typeWith(XK_Alt_L, key);
        EXPECT_TRUE(settle());
    }
    void back() { go(XK_Left); }
    void forward() { go(XK_Right); }
    void key(unsigned long keySymbol)
    {
        type(keySymbol);
        EXPECT_TRUE(settle());
    }
    void rest()
    {
        EXPECT_TRUE(settle());
        EXPECT_TRUE(waitUntil([&] { return isAtRest(); }));
    }
};

} // namespace

TEST_F(History, ADragIsOneViewToGoBackFromAndForwardTo)
{
    open(folder.writeGrid());
    EXPECT_FALSE(canGoBack());
    const std::string first = view();
    const QImage before = picture();
    drag(QPoint(90, 30));
    rest();
    const std::string turned = view();
    EXPECT_TRUE(canGoBack());
    EXPECT_FALSE(canGoForward());
    back();
    EXPECT_EQ(view(), first);
    EXPECT_FALSE(differ(before, picture()));
    EXPECT_FALSE(canGoBack());
    EXPECT_TRUE(canGoForward());
    forward();
    EXPECT_EQ(view(), turned);
    EXPECT_FALSE(canGoForward());
}

TEST_F(History, ASeriesOfStepsIsOneViewAndOneThatHasNotComeToRestIsNotLost)
{
    open(folder.writeTable());
    const std::string first = view();
    movePointer(area(), centre());
    for (int i = 0; i < 3; ++i)
        wheel(true);
    EXPECT_TRUE(waitUntil([&] { return canGoBack(); })) << "at once";
    const std::string zoomed = view();
    back();
    EXPECT_EQ(view(), first);
    EXPECT_FALSE(canGoBack());
    forward();
    EXPECT_EQ(view(), zoomed);
}

TEST_F(History, WhileAButtonIsPressedNoViewHasComeToRest)
{
    open(folder.writeGrid());
    const std::string first = view();
    press(centre());
    movePointer(area(), centre() + QPoint(50, 20));
    ASSERT_TRUE(waitUntil([&] { return view() != first; }));
    EXPECT_TRUE(settle());
    EXPECT_FALSE(waitUntil([&] { return isAtRest(); }, 1200));
    release();
    rest();
}

TEST_F(History, ANewViewTakesThePlaceOfThoseThatCameLater)
{
    open(folder.writeTable());
    const std::string first = view();
    key(XK_minus);
    rest();
    key(XK_minus);
    rest();
    back();
    back();
    EXPECT_EQ(view(), first);
    key(XK_y);
    rest();
    EXPECT_FALSE(canGoForward());
    back();
    EXPECT_EQ(view(), first);
}

TEST_F(History, TheScaleOfAnAxisComesBackWithItsView)
{
    open(folder.writeTable());
    key(XK_y);
    rest();
    EXPECT_TRUE(action("Logarithmic &y")->isChecked());
    back();
    EXPECT_FALSE(action("Logarithmic &y")->isChecked());
    forward();
    EXPECT_TRUE(action("Logarithmic &y")->isChecked());
}

TEST_F(History, NewDataBeginANewOne)
{
    open(folder.writeTable());
    key(XK_minus);
    rest();
    EXPECT_TRUE(canGoBack());
    open(folder.writeGrid());
    EXPECT_FALSE(canGoBack());
    EXPECT_FALSE(canGoForward());
}
