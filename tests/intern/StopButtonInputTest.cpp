// A person and the stop buttons while the engine works.
#include "integration/StopButton.h"
#include "tests/intern/RealInputFixture.h"

#include <boost/make_shared.hpp>

using namespace velmora::test;
using velmora::sdk::integration::StopButton;
using velmora::testing::EngineProbe;

TEST_F(RealInput, APressOfAStopButtonInForceReachesItAndStopsTheWork)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    monitor.registerStopButton(stopButton);
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([&] { return window.button->underMouse(); }));
    typeKey(XK_Escape); // which is not enough now
    pressButton(1);
    EXPECT_TRUE(work());
    EXPECT_TRUE(window.button->isDown());
    releaseButton(1);
    EXPECT_TRUE(waitUntil([&] { return !window.button->isDown(); }));
}

TEST_F(RealInput, AHiddenDisabledOrDestroyedStopButtonIsNotInForce)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    monitor.registerStopButton(stopButton);
    EngineProbe::setBusy(true);
    EXPECT_FALSE(monitor.isEngineInterruptible());
    window.button->setEnabled(false);
    EXPECT_TRUE(monitor.isEngineInterruptible());
    window.button->setEnabled(true);
    window.button->hide();
    EXPECT_TRUE(monitor.isEngineInterruptible());
    window.button->show();
    EXPECT_FALSE(monitor.isEngineInterruptible());
    delete window.button;
    EXPECT_TRUE(monitor.isEngineInterruptible());
    EngineProbe::setBusy(false);
    typeKey(XK_Escape);
    EXPECT_TRUE(work());
}

TEST_F(RealInput, AStopButtonDestroyedUnderThePointerLeavesNoCursorBehind)
{
    auto stopButton = boost::make_shared<StopButton>(window.button);
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor() != nullptr; }));
    delete window.button;
    stopButton.reset();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(RealInput, AStopButtonClickedAndLeftWithinOneTurnIsUpAgainAndLeavesNoCursorBehind)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    monitor.registerStopButton(stopButton);
    movePointer(window, window.overButton());
    EXPECT_TRUE(waitUntil([&] { return window.button->underMouse(); }));
    QApplication::setOverrideCursor(Qt::WaitCursor); // as the engine does
    pressButton(1);
    releaseButton(1);
    movePointer(window, window.overArea());
    EXPECT_TRUE(work());
    QApplication::restoreOverrideCursor();
    EXPECT_TRUE(waitUntil([&] { return !window.button->underMouse() && QApplication::overrideCursor() == nullptr; }));
    EXPECT_FALSE(window.button->isDown());
    EXPECT_FALSE(window.button->testAttribute(Qt::WA_UnderMouse));
}

namespace {

/// Asked before the monitor, which may swallow it: whether the pointer came over the object.
class Arrival : public QObject {
public:
    explicit Arrival(const QObject* place) : m_place(place) { qApp->installEventFilter(this); }
    ~Arrival() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        m_seen = m_seen || (receiver == m_place && event->type() == QEvent::Enter);
        return false;
    }
    bool wasSeen() const { return m_seen; }

private:
    const QObject* const m_place;
    bool m_seen = false;
};

} // namespace

TEST_F(RealInput, AStopButtonEnteredWhileEventsAreHeldBackShowsItsCursorAfterwardsAndTakesItBack)
{
    const auto stopButton = boost::make_shared<StopButton>(window.button);
    const Arrival arrival(window.button);
    movePointer(window, window.overButton());
    workWithEverythingHeldBack([&] { return arrival.wasSeen(); });
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor() != nullptr; }));
    movePointer(window, window.overArea());
    EXPECT_TRUE(waitUntil([] { return QApplication::overrideCursor() == nullptr; }));
}
