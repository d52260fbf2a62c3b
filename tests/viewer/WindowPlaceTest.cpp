// What a window comes back with: its size, its place, its tool bars.

#include "tests/viewer/OpenViewer.h"

#include "WindowPlace.h"
#include "tests/support/ToolkitWindows.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QToolBar>
#include <algorithm>

using namespace velmora::test;

namespace {

class ComingBack : public OpenViewer {
protected:
    ComingBack() { new viewer::WindowPlace(*window); }

    void closeAndOpenAgain()
    {
        closeByWindowManager(*window);
        EXPECT_TRUE(waitUntil([this] { return !window->isVisible(); }));
        window = std::make_unique<viewer::MainWindow>();
        new viewer::WindowPlace(*window);
        EXPECT_TRUE(showAndWait(*window));
    }

    bool isOnScreen() const
    {
        const std::vector<QRect> screens = screenGeometries();
        const QRect place = window->geometry();
        return std::any_of(screens.begin(), screens.end(),
                           [&](const QRect& screen) { return screen.contains(place.center()); });
    }
};

} // namespace

TEST_F(ComingBack, AWindowHasItsSizeAndItsPlace)
{
    window->setGeometry(90, 70, 620, 480);
    processPending();
    closeAndOpenAgain();
    EXPECT_TRUE(waitUntil([this] { return window->geometry() == QRect(90, 70, 620, 480); }))
        << window->x() << ' ' << window->y() << ' ' << window->width() << ' ' << window->height();
}

TEST_F(ComingBack, ItsToolBarIsWhereItWas)
{
    window->addToolBar(Qt::LeftToolBarArea, window->findChild<QToolBar*>());
    closeAndOpenAgain();
    EXPECT_EQ(window->toolBarArea(window->findChild<QToolBar*>()), Qt::LeftToolBarArea);
    window->findChild<QToolBar*>()->hide();
    closeAndOpenAgain();
    EXPECT_FALSE(window->findChild<QToolBar*>()->isVisible());
}

TEST_F(ComingBack, AWindowOfAScreenThatIsGoneIsOnOneThatIsThere)
{
    window->setGeometry(9000, 7000, 620, 480);
    processPending();
    ASSERT_FALSE(isOnScreen());
    closeAndOpenAgain();
    EXPECT_TRUE(waitUntil([this] { return isOnScreen(); })) << window->x() << ' ' << window->y();
}
