#include "integration/StopButton.h"

#include "integration/NullStopButton.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QPushButton>
#include <gtest/gtest.h>
#include <memory>

using velmora::sdk::integration::NullStopButton;
using velmora::sdk::integration::StopButton;
using namespace velmora::test;

namespace {

bool hasOverrideCursor()
{
    return QApplication::overrideCursor() != nullptr;
}

void send(QObject& receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(&receiver, &event);
}

/// A window with a button in a corner, so that the pointer can be elsewhere in it.
struct Window : QWidget {
    Window()
    {
        resize(200, 200);
        button->setGeometry(0, 0, 80, 40);
    }
    QPoint overButton() const { return QPoint(40, 20); }
    QPoint elsewhere() const { return QPoint(150, 150); }

    QPushButton* button = new QPushButton(this); // the window owns it
};

} // namespace

TEST(StopButton, IsInForceWhileTheButtonIsVisibleAndEnabled)
{
    Window window;
    const StopButton stopButton(window.button);
    EXPECT_FALSE(stopButton.isActive()) << "not shown yet";
    ASSERT_TRUE(showAndWait(window));
    EXPECT_TRUE(stopButton.isActive());
    window.button->setEnabled(false);
    EXPECT_FALSE(stopButton.isActive()) << "disabled";
    window.button->setEnabled(true);
    EXPECT_TRUE(stopButton.isActive());
    window.setEnabled(false);
    EXPECT_FALSE(stopButton.isActive()) << "disabled with its window";
    window.setEnabled(true);
    window.button->hide();
    EXPECT_FALSE(stopButton.isActive()) << "hidden";
    window.button->show();
    EXPECT_TRUE(stopButton.isActive());
    window.hide();
    EXPECT_FALSE(stopButton.isActive()) << "hidden with its window";
}

TEST(StopButton, IsEqualToItsButtonAlone)
{
    QPushButton button;
    QPushButton other;
    const StopButton stopButton(&button);
    EXPECT_TRUE(stopButton.isEqual(&button));
    EXPECT_TRUE(stopButton.isEqual(static_cast<QObject*>(&button)));
    EXPECT_FALSE(stopButton.isEqual(&other));
    EXPECT_FALSE(stopButton.isEqual(nullptr));
}

TEST(StopButton, OutlivesItsButton)
{
    auto button = std::make_unique<QPushButton>();
    const void* const address = button.get();
    const StopButton stopButton(button.get());
    button.reset();
    EXPECT_FALSE(stopButton.isActive());
    EXPECT_FALSE(stopButton.isEqual(address));
    EXPECT_TRUE(stopButton.isEqual(nullptr));
}

TEST(StopButton, ShowsTheArrowWhileThePointerIsOverTheButton)
{
    Window window;
    const StopButton stopButton(window.button);
    ASSERT_TRUE(showAndWait(window));
    movePointer(window, window.elsewhere());
    processPending();
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor()->shape() == Qt::ArrowCursor; }));
    movePointer(window, window.elsewhere());
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor()->shape() == Qt::WaitCursor; }));
    QApplication::restoreOverrideCursor();
    EXPECT_FALSE(hasOverrideCursor());
}

TEST(StopButton, NeverConsumesAnEvent)
{
    struct Counting : QPushButton {
        bool event(QEvent* event) override
        {
            count += event->type() == QEvent::Enter || event->type() == QEvent::Leave || event->type() == QEvent::User;
            return QPushButton::event(event);
        }
        int count = 0;
    } button;
    const StopButton stopButton(&button);
    send(button, QEvent::Enter);
    send(button, QEvent::User);
    send(button, QEvent::Leave);
    EXPECT_EQ(button.count, 3);
}

TEST(StopButton, DestroyedUnderThePointerTakesItsArrowWithIt)
{
    QPushButton button;
    auto stopButton = std::make_unique<StopButton>(&button);
    send(button, QEvent::Enter);
    EXPECT_TRUE(hasOverrideCursor());
    stopButton.reset();
    EXPECT_FALSE(hasOverrideCursor());
    // And it does not filter any more.
    send(button, QEvent::Enter);
    EXPECT_FALSE(hasOverrideCursor());
}

TEST(StopButton, DestroyedWithThePointerElsewhereLeavesTheCursorAlone)
{
    QPushButton button;
    auto stopButton = std::make_unique<StopButton>(&button);
    send(button, QEvent::Enter);
    send(button, QEvent::Leave);
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    stopButton.reset();
    EXPECT_TRUE(hasOverrideCursor());
    QApplication::restoreOverrideCursor();
}

TEST(StopButton, ItsButtonDestroyedUnderThePointerKeepsTheArrowForTheStopButtonsEnd)
{
    auto button = std::make_unique<QPushButton>();
    auto stopButton = std::make_unique<StopButton>(button.get());
    send(*button, QEvent::Enter);
    button.reset();
    stopButton.reset();
    EXPECT_FALSE(hasOverrideCursor());
}

TEST(StopButton, ALeaveWithoutAnEnterPopsOneCursor)
{
    QPushButton button;
    const StopButton stopButton(&button);
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    QApplication::setOverrideCursor(QCursor(Qt::CrossCursor));
    send(button, QEvent::Leave);
    ASSERT_TRUE(hasOverrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
}

TEST(NullStopButton, IsAlwaysInForceAndNeverAnyObject)
{
    const NullStopButton stopButton;
    EXPECT_TRUE(stopButton.isActive());
    EXPECT_FALSE(stopButton.isEqual(nullptr));
    EXPECT_FALSE(stopButton.isEqual(&stopButton));
}
