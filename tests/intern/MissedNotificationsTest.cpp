// What the toolkit tells only once and what was swallowed while events were held back: each kind is told again,
// or a widget would stay blank, pressed, laid out for an old size.
#include "integration/toolkit/NewerChanges.h"
#include "tests/intern/InterruptedEventFixture.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

#include <QAction>
#include <QApplication>
#include <QDragLeaveEvent>
#include <QFocusEvent>
#include <QGraphicsRectItem>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusTipEvent>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QToolBar>
#include <algorithm>
#include <map>

using namespace velmora::test;

namespace {

/// Counts the events of each type that it gets.
template <typename Base>
class Counting : public Base {
public:
    using Base::Base;
    std::map<int, int> counts;

    bool event(QEvent* event) override
    {
        ++counts[event->type()];
        return Base::event(event);
    }
};

class MissedNotifications : public InterruptedEvent {
protected:
    /// The work begins to unwind; its first event is of the test and cannot be copied.
    void holdBack()
    {
        beginInterruption();
        sendPlain(other, QEvent::User);
    }
    void letGoOn()
    {
        unwind();
        Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
        // What the first round posts is delivered by the second.
        for (int round = 0; round < 2; ++round)
            QCoreApplication::sendPostedEvents();
    }
};

const QEvent::Type toldByType[] = {QEvent::UpdateRequest,
                                   QEvent::LayoutRequest,
                                   QEvent::PolishRequest,
                                   QEvent::Move,
                                   QEvent::ContentsRectChange,
                                   QEvent::Show,
                                   QEvent::Hide,
                                   QEvent::ShowToParent,
                                   QEvent::HideToParent,
                                   QEvent::Enter,
                                   QEvent::Leave,
                                   QEvent::WindowActivate,
                                   QEvent::WindowDeactivate,
                                   QEvent::WindowBlocked,
                                   QEvent::WindowUnblocked,
                                   QEvent::ActivationChange,
                                   QEvent::EnabledChange,
                                   QEvent::FontChange,
                                   QEvent::PaletteChange,
                                   QEvent::StyleChange,
                                   QEvent::LanguageChange,
                                   QEvent::LocaleChange,
                                   QEvent::LayoutDirectionChange,
                                   QEvent::ApplicationFontChange,
                                   QEvent::ApplicationPaletteChange,
                                   QEvent::ApplicationLayoutDirectionChange,
                                   QEvent::ApplicationWindowIconChange,
                                   QEvent::WindowTitleChange,
                                   QEvent::WindowIconChange,
                                   QEvent::IconTextChange,
                                   QEvent::ModifiedChange,
                                   QEvent::ToolTipChange,
                                   QEvent::MouseTrackingChange,
                                   QEvent::CursorChange,
                                   QEvent::ZOrderChange,
                                   QEvent::WinIdChange,
                                   QEvent::DragLeave};

} // namespace

TEST_F(MissedNotifications, AChangeThatWasSwallowedTwiceIsToldOnce)
{
    for (const QEvent::Type type : toldByType) {
        Counting<QWidget> subject;
        QCoreApplication::sendPostedEvents(); // what the toolkit posts for a new widget
        subject.counts.clear();
        holdBack();
        Probe::filter(monitor).eventFilter(&subject, std::make_unique<QEvent>(type).get());
        Probe::filter(monitor).eventFilter(&subject, std::make_unique<QEvent>(type).get());
        EXPECT_EQ(subject.counts[type], 0) << type;
        letGoOn();
        EXPECT_EQ(subject.counts[type], 1) << type;
    }
}

TEST_F(MissedNotifications, AChangeThatOnlyNewerToolkitsTellOfIsToldAgainToo)
{
    for (int type = 1; type < QEvent::User; ++type) {
        if (!velmora::sdk::integration::toolkit::isNewerChange(static_cast<QEvent::Type>(type)))
            continue;
        Counting<QWidget> subject;
        holdBack();
        sendPlain(subject, static_cast<QEvent::Type>(type));
        EXPECT_EQ(subject.counts[type], 0) << type;
        letGoOn();
        EXPECT_EQ(subject.counts[type], 1) << type;
    }
}

TEST_F(MissedNotifications, OfTwoStatesThatTookTurnsNothingIsToldWhenTheReceiverKnowsTheLast)
{
    const std::pair<QEvent::Type, QEvent::Type> pairs[] = {
        {QEvent::Show, QEvent::Hide},
        {QEvent::ShowToParent, QEvent::HideToParent},
        {QEvent::Enter, QEvent::Leave},
        {QEvent::HoverEnter, QEvent::HoverLeave},
        {QEvent::WindowActivate, QEvent::WindowDeactivate},
        {QEvent::WindowBlocked, QEvent::WindowUnblocked},
    };
    for (const auto& [first, second] : pairs) {
        Counting<QWidget> subject;
        holdBack();
        sendPlain(subject, first);
        sendPlain(subject, second);
        letGoOn();
        EXPECT_EQ(subject.counts[first] + subject.counts[second], 0) << first;
        holdBack();
        for (const QEvent::Type type : {first, second, first})
            sendPlain(subject, type);
        letGoOn();
        EXPECT_EQ(subject.counts[first], 1) << first;
        EXPECT_EQ(subject.counts[second], 0) << first;
    }
}

TEST_F(MissedNotifications, WhatAPersonDidAndWhatComesByItselfIsNotToldAgain)
{
    for (const QEvent::Type type : {QEvent::User, QEvent::HoverMove, QEvent::ToolTip, QEvent::SockAct}) {
        Counting<QWidget> subject;
        holdBack();
        sendPlain(subject, type);
        letGoOn();
        EXPECT_EQ(subject.counts[type], 0) << type;
    }
}

TEST_F(MissedNotifications, ItIsToldAfterTheCopyThatWasKept)
{
    beginInterruption();
    sendKey(widget, Qt::Key_A);
    Counting<QWidget> changed;
    sendPlain(changed, QEvent::FontChange);
    bool copyWasFirst = false;
    widget.onEvent = [&](QEvent&) { copyWasFirst = changed.counts[QEvent::FontChange] == 0; };
    letGoOn();
    EXPECT_TRUE(copyWasFirst);
    EXPECT_EQ(changed.counts[QEvent::FontChange], 1);
}

TEST_F(MissedNotifications, AReceiverThatIsGoneIsToldNothing)
{
    auto gone = std::make_unique<Counting<QWidget>>();
    holdBack();
    sendPlain(*gone, QEvent::FontChange);
    gone.reset();
    letGoOn();
}

TEST_F(MissedNotifications, ALayoutLosesTheChildThatIsDeletedWhileEventsAreHeldBack)
{
    QWidget window;
    QHBoxLayout* const layout = new QHBoxLayout(&window); // the window's
    QWidget* const child = new QWidget;                   // the window's from now on
    layout->addWidget(child);
    layout->addWidget(new QWidget); // the window's, too
    EXPECT_TRUE(showAndWait(window));
    holdBack();
    delete child;
    EXPECT_EQ(layout->count(), 1);
    letGoOn();
    window.resize(300, 200); // touches every item
    processPending();
}

TEST_F(MissedNotifications, ASplitterGetsAndLosesChildrenWhileEventsAreHeldBack)
{
    QSplitter splitter;
    QWidget* const child = new QWidget(&splitter); // the splitter's
    new QWidget(&splitter);                        // the splitter's
    splitter.resize(300, 100);
    EXPECT_TRUE(showAndWait(splitter));
    holdBack();
    delete child;
    new QWidget(&splitter); // the splitter's
    EXPECT_EQ(splitter.count(), 2);
    letGoOn();
    splitter.resize(400, 100);
    processPending();
}

TEST_F(MissedNotifications, AToolBarAndAMenuKnowTheirActionsWhileEventsAreHeldBack)
{
    QMainWindow window;
    QToolBar* const bar = window.addToolBar(QLatin1String("tools")); // the window's
    QMenu menu;
    auto action = std::make_unique<QAction>(QLatin1String("one"), nullptr);
    bar->addAction(action.get());
    menu.addAction(action.get());
    EXPECT_TRUE(showAndWait(window));
    holdBack();
    QAction* const second = bar->addAction(QLatin1String("two"));
    EXPECT_NE(bar->widgetForAction(second), nullptr);
    action.reset();
    letGoOn();
    window.resize(500, 300);
    menu.popup(QPoint(10, 10));
    processPending();
    menu.close();
    EXPECT_EQ(bar->actions().size(), 1);
}

TEST_F(MissedNotifications, AWidgetIsPolishedAtOnceAndTellsOfItsNewParent)
{
    Counting<QWidget> subject;
    QWidget parent;
    holdBack();
    subject.ensurePolished();
    EXPECT_EQ(subject.counts[QEvent::Polish], 1);
    subject.setParent(&parent);
    EXPECT_EQ(subject.counts[QEvent::ParentChange], 1);
    subject.setParent(nullptr);
    letGoOn();
}

TEST_F(MissedNotifications, AWindowThatWasResizedIsPaintedAllOver)
{
    QWidget window;
    window.setGeometry(50, 50, 200, 150);
    window.setStyleSheet(QLatin1String("background: #2060c0"));
    EXPECT_TRUE(showAndWait(window));
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(window), qRgb(0x20, 0x60, 0xc0)) == 200 * 150; }));
    holdBack();
    window.resize(400, 300);
    EXPECT_TRUE(waitUntil([&] {
        processPending();
        return grabFromScreen(window).size() == QSize(400, 300);
    }));
    letGoOn();
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(window), qRgb(0x20, 0x60, 0xc0)) == 400 * 300; }));
}

TEST_F(MissedNotifications, AGraphicsViewIsPaintedAgainAfterAQueuedCallOfItsSceneWasSwallowed)
{
    QGraphicsScene scene(0, 0, 100, 100);
    QGraphicsRectItem* const item = scene.addRect(0, 0, 40, 40, Qt::NoPen, QBrush(qRgb(200, 0, 0)));
    QGraphicsView view(&scene);
    view.setGeometry(50, 50, 150, 150);
    EXPECT_TRUE(showAndWait(view));
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(*view.viewport()), qRgb(200, 0, 0)) > 1000; }));
    holdBack();
    item->setBrush(QBrush(qRgb(0, 150, 0)));
    processPending();
    letGoOn();
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(*view.viewport()), qRgb(0, 150, 0)) > 1000; }));
    // And it goes on to do so.
    item->setBrush(QBrush(qRgb(0, 0, 250)));
    EXPECT_TRUE(waitUntil([&] { return countColor(grabFromScreen(*view.viewport()), qRgb(0, 0, 250)) > 1000; }));
}

namespace {

void sendMouse(QWidget& widget, QEvent::Type type, const QPoint& at)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

QPoint upButton(const QSpinBox& box)
{
    QStyleOptionSpinBox option;
    option.initFrom(&box);
    option.subControls = QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown | QStyle::SC_SpinBoxEditField;
    return box.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &box).center();
}

/// Counts how often the application's timers have fired.
class Ticks : public QObject {
public:
    Ticks() { startTimer(20); }
    int count = 0;

protected:
    void timerEvent(QTimerEvent*) override { ++count; }
};

/// Whether the value stays as it is for longer than any widget waits between two steps.
template <typename Widget>
bool standsStill(const Widget& widget)
{
    const int before = widget.value();
    Ticks ticks;
    EXPECT_TRUE(waitUntil([&] { return ticks.count > 40; }));
    return widget.value() == before;
}

} // namespace

TEST_F(MissedNotifications, ASpinBoxWhoseReleaseWasSwallowedStopsStepping)
{
    QSpinBox box;
    box.setMaximum(1000000);
    EXPECT_TRUE(showAndWait(box));
    sendMouse(box, QEvent::MouseButtonPress, upButton(box));
    EXPECT_TRUE(waitUntil([&] { return box.value() > 3; }));
    holdBack();
    sendMouse(box, QEvent::MouseButtonRelease, upButton(box));
    letGoOn();
    EXPECT_TRUE(standsStill(box));
}

TEST_F(MissedNotifications, ASpinBoxWhoseKeyReleaseWasSwallowedStopsStepping)
{
    QSpinBox box;
    box.setMaximum(1000000);
    EXPECT_TRUE(showAndWait(box));
    QKeyEvent press = keyEvent(QEvent::KeyPress, Qt::Key_Up);
    QCoreApplication::sendEvent(&box, &press);
    holdBack();
    QKeyEvent release = keyEvent(QEvent::KeyRelease, Qt::Key_Up);
    QCoreApplication::sendEvent(&box, &release);
    letGoOn();
    EXPECT_TRUE(standsStill(box));
}

TEST_F(MissedNotifications, AScrollBarAndASliderWhoseReleaseWasSwallowedAreUpAndStandStill)
{
    QScrollBar bar(Qt::Horizontal);
    QSlider slider(Qt::Horizontal);
    for (QAbstractSlider* const subject :
         {static_cast<QAbstractSlider*>(&bar), static_cast<QAbstractSlider*>(&slider)}) {
        subject->setRange(0, 1000000);
        subject->setGeometry(100, 100, 300, 30);
        EXPECT_TRUE(showAndWait(*subject));
        sendMouse(*subject, QEvent::MouseButtonPress, QPoint(250, 15));
        EXPECT_TRUE(waitUntil([&] { return subject->value() > 0; }));
        holdBack();
        sendMouse(*subject, QEvent::MouseButtonRelease, QPoint(250, 15));
        letGoOn();
        EXPECT_TRUE(standsStill(*subject));
        EXPECT_FALSE(subject->isSliderDown());
    }
}

TEST_F(MissedNotifications, AWidgetThatHasGrabbedTheMouseGetsTheReleaseThatEndsIt)
{
    class Dragged : public QWidget {
    protected:
        void mousePressEvent(QMouseEvent*) override { grabMouse(); }
        void mouseReleaseEvent(QMouseEvent*) override { releaseMouse(); }
    } dragged;
    EXPECT_TRUE(showAndWait(dragged));
    sendMouse(dragged, QEvent::MouseButtonPress, QPoint(5, 5));
    EXPECT_EQ(QWidget::mouseGrabber(), &dragged);
    holdBack();
    sendMouse(dragged, QEvent::MouseButtonRelease, QPoint(5, 5));
    EXPECT_EQ(QWidget::mouseGrabber(), &dragged);
    letGoOn();
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(MissedNotifications, AGraphicsItemThatHasTheMouseGetsTheReleaseThatEndsIt)
{
    QGraphicsScene scene(0, 0, 200, 200);
    scene.addRect(0, 0, 200, 200)->setFlag(QGraphicsItem::ItemIsMovable);
    QGraphicsView view(&scene);
    EXPECT_TRUE(showAndWait(view));
    const QPoint center = view.viewport()->rect().center();
    sendMouse(*view.viewport(), QEvent::MouseButtonPress, center);
    EXPECT_NE(scene.mouseGrabberItem(), nullptr);
    holdBack();
    sendMouse(*view.viewport(), QEvent::MouseButtonRelease, center);
    EXPECT_NE(scene.mouseGrabberItem(), nullptr);
    letGoOn();
    EXPECT_EQ(scene.mouseGrabberItem(), nullptr);
}

TEST_F(MissedNotifications, AButtonWhosePressWasSwallowedTooIsLeftAlone)
{
    QPushButton button;
    EXPECT_TRUE(showAndWait(button));
    holdBack();
    sendMouse(button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(button, QEvent::MouseButtonRelease, QPoint(5, 5));
    button.setDown(true); // by the host, meanwhile
    letGoOn();
    EXPECT_TRUE(button.isDown());
}

TEST_F(MissedNotifications, WhatAnInputMethodCommittedArrives)
{
    QLineEdit line;
    EXPECT_TRUE(showAndWait(line));
    line.setFocus();
    holdBack();
    for (const char* const text : {"one", "two"}) {
        QInputMethodEvent event;
        event.setCommitString(QLatin1String(text));
        QCoreApplication::sendEvent(&line, &event);
    }
    EXPECT_EQ(line.text(), QString());
    letGoOn();
    EXPECT_EQ(line.text(), QLatin1String("onetwo"));
}

TEST_F(MissedNotifications, TheFocusIsToldOnlyWhereItIsStill)
{
    QWidget window;
    Counting<QLineEdit> first(&window);
    Counting<QLineEdit> second(&window);
    second.move(0, 50);
    EXPECT_TRUE(showAndWait(window));
    window.activateWindow();
    first.setFocus();
    EXPECT_TRUE(waitUntil([&] { return first.hasFocus(); }));
    first.counts.clear();
    holdBack();
    second.setFocus();
    first.setFocus();
    letGoOn();
    EXPECT_EQ(first.counts[QEvent::FocusIn] + first.counts[QEvent::FocusOut], 0);
    EXPECT_EQ(second.counts[QEvent::FocusIn] + second.counts[QEvent::FocusOut], 0);
    holdBack();
    second.setFocus();
    letGoOn();
    EXPECT_EQ(first.counts[QEvent::FocusOut], 1);
    EXPECT_EQ(second.counts[QEvent::FocusIn], 1);
}

TEST_F(MissedNotifications, OfSeveralStatusTipsTheLastIsTold)
{
    class TipWidget : public QWidget {
    public:
        QStringList tips;
        bool event(QEvent* event) override
        {
            if (event->type() == QEvent::StatusTip)
                tips << static_cast<QStatusTipEvent*>(event)->tip();
            return QWidget::event(event);
        }
    } subject;
    holdBack();
    for (const char* const tip : {"a", ""}) {
        QStatusTipEvent event{QLatin1String(tip)};
        QCoreApplication::sendEvent(&subject, &event);
    }
    letGoOn();
    EXPECT_EQ(subject.tips, QStringList(QString()));
}

TEST_F(MissedNotifications, AWindowsStateAndAPropertyAreToldWithWhatTheySay)
{
    class Told : public QWidget {
    public:
        Qt::WindowStates before;
        QList<QByteArray> names;
        bool event(QEvent* event) override
        {
            if (event->type() == QEvent::WindowStateChange)
                before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
            if (event->type() == QEvent::DynamicPropertyChange)
                names << static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
            return QWidget::event(event);
        }
    } subject;
    holdBack();
    QWindowStateChangeEvent state(Qt::WindowMaximized);
    QCoreApplication::sendEvent(&subject, &state);
    subject.setProperty("one", 1);
    subject.setProperty("two", 2);
    letGoOn();
    EXPECT_EQ(subject.before, Qt::WindowMaximized);
    EXPECT_EQ(subject.names, QList<QByteArray>() << "one"
                                                 << "two");
}

TEST_F(MissedNotifications, AnApplicationThatWasToQuitQuits)
{
    holdBack();
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); // the queue owns it
    QCoreApplication::sendPostedEvents();
    unwind();
    Probe::Filter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(monitor)));
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(MissedNotifications, APlainWindowAndAPopupWhoseClosingWasKeptAreClosedWithoutBeingAskedTwice)
{
    for (const Qt::WindowType type : {Qt::Window, Qt::Popup}) {
        Counting<QWidget>* const window = new Counting<QWidget>; // deletes itself when it is closed
        window->setWindowFlags(type);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setAttribute(Qt::WA_QuitOnClose, false);
        const QPointer<QWidget> alive(window);
        EXPECT_TRUE(showAndWait(*window));
        beginInterruption();
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
        unwind();
        sendTrigger(other);
        EXPECT_FALSE(alive && alive->isVisible());
        EXPECT_EQ(window->counts[QEvent::Close], 1);
        EXPECT_TRUE(waitUntil([&] { return alive.isNull(); }));
    }
}

TEST_F(MissedNotifications, AWindowThatRefusesTheCopyOfItsClosingStaysOpen)
{
    class Refusing : public QWidget {
    protected:
        void closeEvent(QCloseEvent* event) override { event->ignore(); }
    } window;
    EXPECT_TRUE(showAndWait(window));
    beginInterruption();
    window.close();
    unwind();
    sendTrigger(other);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MissedNotifications, AButtonThatThePointerLeftMeanwhileIsNoLongerDrawnAsHovered)
{
    class Hovered : public QPushButton {
    public:
        QList<QPoint> places;
        bool event(QEvent* event) override
        {
            if (event->type() == QEvent::HoverLeave)
                places << static_cast<QHoverEvent*>(event)->pos();
            return QPushButton::event(event);
        }
    } button;
    EXPECT_TRUE(showAndWait(button));
    holdBack();
    QHoverEvent leave(QEvent::HoverLeave, QPoint(-1, -1), QPoint(3, 3));
    QCoreApplication::sendEvent(&button, &leave);
    EXPECT_TRUE(button.places.isEmpty());
    letGoOn();
    EXPECT_EQ(button.places, QList<QPoint>() << QPoint(-1, -1));
}
