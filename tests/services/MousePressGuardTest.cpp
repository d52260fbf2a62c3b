// What a message box does to mouse presses that were waiting behind it.
#include "integration/services/MessageBoxService.h"

#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "testing/EngineProbe.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPointer>
#include <gmock/gmock.h>
#include <memory>

namespace velmora::test {

namespace {

using sdk::integration::MessageBoxType_e;
using sdk::integration::intern::ApplicationEventMonitorAbstract;
using sdk::integration::services::MessageBoxService;
using testing::EngineProbe;

const MessageBoxType_e NoBox = static_cast<MessageBoxType_e>(7);

class Target : public QWidget {
public:
    explicit Target(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }
    int presses = 0;
    int doublePresses = 0;
    int releases = 0;
    int moves = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++doublePresses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
};

QMouseEvent* mouseEvent(QEvent::Type type)
{
    return new QMouseEvent(type, QPoint(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
}

class MousePressGuard : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_window.reset(new QMainWindow);
        m_window->setGeometry(300, 300, 300, 200);
        m_target = new Target(m_window.get());
        m_window->setCentralWidget(m_target);
        ASSERT_TRUE(showAndWait(*m_window));
        focus();
    }

    void focus()
    {
        focusWindow(*m_window);
        m_window->activateWindow();
        m_target->setFocus();
        ASSERT_TRUE(waitUntil([this] { return QApplication::focusWidget() == m_target; }));
    }

    // Windows without a parent that nobody but the service has made.
    QList<QPointer<QWidget>> markers() const
    {
        QList<QPointer<QWidget>> list;
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window != m_window.get())
                list.append(window);
        return list;
    }

    std::unique_ptr<QMainWindow> m_window;
    Target* m_target = nullptr;
};

// The same with the event monitor at work, which may take any event of the application.
class MousePressGuardUnderTheMonitor : public MousePressGuard {
protected:
    void SetUp() override
    {
        MousePressGuard::SetUp();
        processPending();
        m_monitor.start();
    }

    void TearDown() override
    {
        EngineProbe::reset();
        m_monitor.stop();
    }

    bool pressArrives()
    {
        const int before = m_target->presses;
        const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
        QCoreApplication::sendEvent(m_target, event.get());
        return m_target->presses == before + 1;
    }

    ApplicationEventMonitorAbstract& m_monitor = dynamic_cast<ApplicationEventMonitorAbstract&>(
        sdk::integration::Manager::getInstance().getApplicationEventMonitor());
};

} // namespace

TEST_F(MousePressGuard, APressThatIsWaitingWhenTheBoxClosesIsDiscarded)
{
    MessageBoxService service;
    ModalDriver person([this](QWidget& box) {
        // The focus goes back to the window while the box is being taken down, and a press for
        // what lies behind it is in the queue already.
        new AtItsEnd(&box, [this] {
            QApplication::setActiveWindow(m_window.get());
            QCoreApplication::postEvent(m_target, mouseEvent(QEvent::MouseButtonPress));
        });
        typeKey(XK_Return);
    });
    EXPECT_EQ(3u, service.displayMessageBox("?", sdk::integration::MessageBoxType_Information));
    ASSERT_EQ(m_target, QApplication::focusWidget());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(0, m_target->presses);

    focus();
    click(*m_target, QPoint(20, 20));
    EXPECT_TRUE(waitUntil([this] { return m_target->releases == 1; }));
    EXPECT_EQ(1, m_target->presses);
}

TEST_F(MousePressGuard, WhereTheFocusIsNotBackYetTheWidgetThatHadItBeforeIsGuarded)
{
    MessageBoxService service;
    ModalDriver person([](QWidget& box) {
        new AtItsEnd(&box, [] { QApplication::setActiveWindow(nullptr); });
        typeKey(XK_Return);
    });
    service.displayMessageBox("?", sdk::integration::MessageBoxType_Information);
    ASSERT_EQ(nullptr, QApplication::focusWidget());
    const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
    QCoreApplication::sendEvent(m_target, event.get());
    EXPECT_EQ(0, m_target->presses);
}

TEST_F(MousePressGuard, AWidgetThatHadTheFocusMayGoWhileTheBoxIsOpen)
{
    MessageBoxService service;
    ModalDriver person([this](QWidget& box) {
        new AtItsEnd(&box, [] { QApplication::setActiveWindow(nullptr); });
        delete m_target;
        typeKey(XK_Return);
    });
    service.displayMessageBox("?", sdk::integration::MessageBoxType_Information);
    EXPECT_TRUE(markers().isEmpty());
}

TEST_F(MousePressGuard, OnlyPressesAreDiscarded)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
                                  QEvent::MouseButtonDblClick};
    for (const QEvent::Type type : types) {
        const std::unique_ptr<QMouseEvent> event(mouseEvent(type));
        QCoreApplication::sendEvent(m_target, event.get());
    }
    EXPECT_EQ(0, m_target->presses);
    EXPECT_EQ(1, m_target->moves);
    EXPECT_EQ(1, m_target->releases);
    EXPECT_EQ(1, m_target->doublePresses);
}

TEST_F(MousePressGuard, PressesOnOtherWidgetsPass)
{
    Target other(m_window.get());
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
    QCoreApplication::sendEvent(&other, event.get());
    EXPECT_EQ(1, other.presses);
}

TEST_F(MousePressGuard, ItEndsOnceTheEventLoopHasWorkedOffWhatWasWaiting)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    QCoreApplication::postEvent(m_target, mouseEvent(QEvent::MouseButtonPress));
    processPending();
    EXPECT_EQ(1, m_target->presses) << "posted after the wake-up";
    // Away from where other tests click: two clicks in one place would make a double click.
    click(*m_target, QPoint(150, 120));
    EXPECT_TRUE(waitUntil([this] { return m_target->presses == 2; }));
}

TEST_F(MousePressGuard, TheNextBoxReplacesTheGuardOfTheOneBefore)
{
    MessageBoxService service;
    EXPECT_TRUE(markers().isEmpty());
    service.displayMessageBox("?", NoBox);
    const QList<QPointer<QWidget>> first = markers();
    ASSERT_EQ(1, first.size());
    EXPECT_FALSE(first[0]->isVisible());

    service.displayMessageBox("?", NoBox);
    EXPECT_TRUE(first[0].isNull());
    EXPECT_EQ(1, markers().size());
}

TEST_F(MousePressGuard, WithoutAFocusWidgetTheGuardOfTheBoxBeforeStays)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    const QList<QPointer<QWidget>> first = markers();
    ASSERT_EQ(1, first.size());
    m_target->clearFocus();
    ASSERT_EQ(nullptr, QApplication::focusWidget());
    service.displayMessageBox("?", NoBox);
    EXPECT_FALSE(first[0].isNull());
    EXPECT_EQ(1, markers().size());
}

TEST_F(MousePressGuard, AFocusWidgetMayGoBeforeTheWakeUp)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    delete m_target;
    processPending();
    EXPECT_EQ(1, markers().size());
}

TEST_F(MousePressGuard, TheGuardGoesWithTheServiceAndPressesPassAtOnce)
{
    {
        MessageBoxService service;
        service.displayMessageBox("?", NoBox);
        ASSERT_EQ(1, markers().size());
    }
    EXPECT_TRUE(markers().isEmpty());
    const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
    QCoreApplication::sendEvent(m_target, event.get());
    EXPECT_EQ(1, m_target->presses);
    processPending();
}

TEST_F(MousePressGuardUnderTheMonitor, ItEndsAlthoughItsWakeUpIsDiscarded)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    EXPECT_FALSE(pressArrives());
    EngineProbe::discardNextEvent();
    // Only the wake-up: a new widget has other events waiting, too.
    QCoreApplication::sendPostedEvents(markers().at(0), 2812);
    ASSERT_FALSE(EngineProbe::isDiscardingNextEvent());
    EXPECT_TRUE(pressArrives());
}

TEST_F(MousePressGuardUnderTheMonitor, ItEndsAlthoughItsWakeUpIsHeldBackByAnInterruption)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    EXPECT_FALSE(pressArrives());
    EngineProbe::askToStop(true);
    processPending();
    EngineProbe::askToStop(false);
    processPending();
    EXPECT_TRUE(pressArrives());
}

TEST_F(MousePressGuard, ItEndsAlthoughItsWakeUpIsDropped)
{
    MessageBoxService service;
    service.displayMessageBox("?", NoBox);
    QCoreApplication::removePostedEvents(markers().at(0));
    const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
    QCoreApplication::sendEvent(m_target, event.get());
    EXPECT_EQ(1, m_target->presses);
}

TEST_F(MousePressGuard, TwoServicesGuardOnTheirOwn)
{
    MessageBoxService first;
    first.displayMessageBox("?", NoBox);
    {
        MessageBoxService second;
        second.displayMessageBox("?", NoBox);
        EXPECT_EQ(2, markers().size());
    }
    EXPECT_EQ(1, markers().size());
    const std::unique_ptr<QMouseEvent> event(mouseEvent(QEvent::MouseButtonPress));
    QCoreApplication::sendEvent(m_target, event.get());
    EXPECT_EQ(0, m_target->presses);
}

} // namespace velmora::test
