// A double click on the button of a message box where a window manager gives the focus: the second
// click is for nothing that lies behind.
#include "integration/services/MessageBoxService.h"

#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/WindowManager.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace velmora::test {

namespace {

using sdk::integration::services::MessageBoxService;

class Behind : public QWidget {
public:
    Behind() { setFocusPolicy(Qt::StrongFocus); }
    int presses = 0;
    int doublePresses = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++doublePresses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
};

class MousePressGuardOnADesktop : public ::testing::Test {
protected:
    MousePressGuardOnADesktop() : m_interval(QApplication::doubleClickInterval()) {}

    void SetUp() override
    {
        ASSERT_TRUE(hasWindowManager());
        m_window.setCentralWidget(m_behind);
        m_window.setGeometry(100, 100, 900, 700);
        ASSERT_TRUE(showAndWait(m_window));
        ASSERT_TRUE(waitUntil([this] { return m_window.isActiveWindow(); }));
        m_behind->setFocus();
        ASSERT_EQ(m_behind, QApplication::focusWidget());
    }

    void TearDown() override { QApplication::setDoubleClickInterval(m_interval); }

    /// Has a box answered with a double click on Ok. The second click is made once the box has gone from
    /// the screen and before the event loop runs again, as when the engine goes on with its work.
    void clickTwiceOnOk()
    {
        ModalDriver person([this](QWidget& box) {
            const QWidget& button = *dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok);
            m_place = m_behind->mapFromGlobal(button.mapToGlobal(button.rect().center()));
            click(button, button.rect().center());
        });
        EXPECT_EQ(3u, m_service.displayMessageBox("?", sdk::integration::MessageBoxType_Information));
        EXPECT_FALSE(person.hadToClose());
        ASSERT_TRUE(m_behind->rect().contains(m_place));
        ASSERT_TRUE(waitForWindowManager());
        click(*m_behind, m_place);
        ASSERT_TRUE(waitForWindowManager());
    }

    const int m_interval;
    QMainWindow m_window;
    Behind* const m_behind = new Behind;
    MessageBoxService m_service;
    QPoint m_place;
};

} // namespace

TEST_F(MousePressGuardOnADesktop, TheSecondClickOfADoubleClickOnOkDoesNotReachWhatLiesBehind)
{
    clickTwiceOnOk();
    ASSERT_TRUE(waitUntil([this] { return m_behind->releases == 1; }));
    EXPECT_EQ(0, m_behind->presses);
    EXPECT_EQ(0, m_behind->doublePresses);
}

TEST_F(MousePressGuardOnADesktop, NeitherDoesOneThatIsTooLateForADoubleClick)
{
    QApplication::setDoubleClickInterval(0);
    clickTwiceOnOk();
    ASSERT_TRUE(waitUntil([this] { return m_behind->releases == 1; }));
    EXPECT_EQ(0, m_behind->presses);
    EXPECT_EQ(0, m_behind->doublePresses);
}

TEST_F(MousePressGuardOnADesktop, ADoubleClickAfterwardsReachesItWhole)
{
    clickTwiceOnOk();
    ASSERT_TRUE(waitUntil([this] { return m_behind->releases == 1; }));
    ASSERT_TRUE(waitUntil([this] { return QApplication::focusWidget() == m_behind; }));
    ASSERT_TRUE(waitForWindowManager());
    processPending();
    // Away from the other clicks, so that these two alone are a double click.
    doubleClick(*m_behind, QPoint(20, 20));
    EXPECT_TRUE(waitUntil([this] { return m_behind->releases == 3; }));
    EXPECT_EQ(1, m_behind->presses);
    EXPECT_EQ(1, m_behind->doublePresses);
}

TEST_F(MousePressGuardOnADesktop, TheFocusIsBackWhereItWas)
{
    clickTwiceOnOk();
    EXPECT_TRUE(waitUntil([this] { return QApplication::focusWidget() == m_behind; }));
}

} // namespace velmora::test
