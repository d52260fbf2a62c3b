// Which events matter to the engine, and the encodings of buttons and modifiers.

#include "tests/intern/MonitorFixture.h"
#include "tests/support/WheelEvents.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QCloseEvent>
#include <QPushButton>
#include <QShortcutEvent>
#include <QSlider>
#include <QSpinBox>
#include <QSplashScreen>
#include <QWheelEvent>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Naming : public Monitor::EventHandlerInterface {
public:
    void handleTimerEventCausingWidgetChange(const QTimerEvent&) override { called.push_back("timer"); }
    void handleMouseWheelEvent(const QWheelEvent&) override { called.push_back("wheel"); }
    void handleMouseMoveEvent(const QMouseEvent&) override { called.push_back("move"); }
    void handleMouseButtonPress(const QMouseEvent&) override { called.push_back("press"); }
    void handleMouseButtonRelease(const QMouseEvent&) override { called.push_back("release"); }
    void handleMouseButtonDblClick(const QMouseEvent&) override { called.push_back("double click"); }
    void handleKeyPress(const QKeyEvent&) override { called.push_back("key press"); }
    void handleKeyRelease(const QKeyEvent&) override { called.push_back("key release"); }
    void handleShortcut(const QShortcutEvent&) override { called.push_back("shortcut"); }
    void handleCloseEvent(const QCloseEvent&) override { called.push_back("close"); }

    Journal called;
};

Journal analyzed(const QEvent& event, QObject& receiver)
{
    Naming handler;
    Monitor::eventAnalyzer(event, receiver, handler);
    return handler.called;
}

} // namespace

TEST(EventAnalyzer, EachKindOfInputReachesItsOperation)
{
    QObject receiver;
    EXPECT_THAT(analyzed(mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton), receiver), ElementsAre("press"));
    EXPECT_THAT(analyzed(mouseEvent(QEvent::MouseButtonRelease, Qt::LeftButton), receiver), ElementsAre("release"));
    EXPECT_THAT(analyzed(mouseEvent(QEvent::MouseButtonDblClick, Qt::LeftButton), receiver),
                ElementsAre("double click"));
    EXPECT_THAT(analyzed(mouseEvent(QEvent::MouseMove, Qt::NoButton), receiver), ElementsAre("move"));
    EXPECT_THAT(analyzed(keyEvent(QEvent::KeyPress, Qt::Key_A), receiver), ElementsAre("key press"));
    EXPECT_THAT(analyzed(keyEvent(QEvent::KeyRelease, Qt::Key_A), receiver), ElementsAre("key release"));
    EXPECT_THAT(analyzed(QShortcutEvent(QKeySequence("Ctrl+S"), 1), receiver), ElementsAre("shortcut"));
    EXPECT_THAT(analyzed(velmora::test::wheelEvent(QPoint(), QPoint(), 120, Qt::NoButton, Qt::NoModifier, Qt::Vertical),
                         receiver),
                ElementsAre("wheel"));
}

TEST(EventAnalyzer, AShortcutOverrideIsAKeyPress)
{
    QObject receiver;
    EXPECT_THAT(analyzed(keyEvent(QEvent::ShortcutOverride, Qt::Key_A), receiver), ElementsAre("key press"));
}

TEST(EventAnalyzer, OtherTypesAreNobodysBusiness)
{
    QWidget receiver;
    const int types[] = {QEvent::None,
                         QEvent::Enter,
                         QEvent::Paint,
                         QEvent::Resize,
                         QEvent::ChildAdded,
                         QEvent::ToolTip,
                         118,
                         QEvent::User,
                         1999,
                         QEvent::MaxUser,
                         QEvent::FocusIn,
                         8,
                         18,
                         20,
                         30,
                         QEvent::StatusTip,
                         50,
                         QEvent::Shortcut - 1};
    for (const int type : types)
        EXPECT_THAT(analyzed(QEvent(static_cast<QEvent::Type>(type)), receiver), IsEmpty()) << "type " << type;
}

TEST(EventAnalyzer, ATimerCountsOnlyForAWidgetThatChangesItsValueByItself)
{
    QSpinBox spinBox;
    QSlider slider;
    QPushButton button;
    QWidget plainWidget;
    QObject plainObject;
    const QTimerEvent timer(7);
    EXPECT_THAT(analyzed(timer, spinBox), ElementsAre("timer"));
    EXPECT_THAT(analyzed(timer, slider), ElementsAre("timer"));
    EXPECT_THAT(analyzed(timer, button), ElementsAre("timer"));
    EXPECT_THAT(analyzed(timer, plainWidget), IsEmpty());
    EXPECT_THAT(analyzed(timer, plainObject), IsEmpty());
}

TEST(EventAnalyzer, AClosingCountsForTheApplicationAndForWindows)
{
    QWidget window;
    QWidget inner(&window);
    EXPECT_THAT(analyzed(QCloseEvent(), window), ElementsAre("close"));
    EXPECT_THAT(analyzed(QCloseEvent(), *qApp), ElementsAre("close"));
    EXPECT_THAT(analyzed(QCloseEvent(), inner), IsEmpty());
}

TEST(EventAnalyzer, AClosingOfAToolTipOrSplashScreenDoesNotCount)
{
    QWidget toolTip(nullptr, Qt::ToolTip);
    QSplashScreen splash;
    QWidget popup(nullptr, Qt::Popup);
    EXPECT_THAT(analyzed(QCloseEvent(), toolTip), IsEmpty());
    EXPECT_THAT(analyzed(QCloseEvent(), splash), IsEmpty());
    // Only some bits of a tool tip.
    EXPECT_THAT(analyzed(QCloseEvent(), popup), ElementsAre("close"));
}

TEST(EventAnalyzerDeathTest, AClosingOfSomethingElseStopsTheProgram)
{
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    QObject object;
    EXPECT_DEATH(analyzed(QCloseEvent(), object), "neither a widget nor the application");
}

TEST(EventEncodings, ButtonsAreOneTwoThreeAndTheExtraOnesNone)
{
    const struct {
        Qt::MouseButton button;
        int expected;
    } rows[] = {{Qt::NoButton, 0},     {Qt::LeftButton, 1},
                {Qt::RightButton, 3},  {Qt::MouseButton(int(Qt::LeftButton) | int(Qt::RightButton)), 0},
                {Qt::MiddleButton, 2}, {Qt::MouseButton(int(Qt::LeftButton) | int(Qt::MiddleButton)), 0},
                {Qt::XButton1, 0},     {Qt::XButton2, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(Monitor::mouseButton(mouseEvent(QEvent::MouseButtonPress, row.button)), row.expected)
            << "button " << row.button;
}

TEST(EventEncodings, ModifiersAreShiftControlAndAlt)
{
    const auto mask = [](Qt::KeyboardModifiers modifiers) {
        return Monitor::genericModifiersForEvent(mouseEvent(QEvent::MouseMove, Qt::NoButton, QPoint(), modifiers));
    };
    EXPECT_EQ(mask(Qt::NoModifier), 0);
    EXPECT_EQ(mask(Qt::ShiftModifier), 1);
    EXPECT_EQ(mask(Qt::ControlModifier), 2);
    EXPECT_EQ(mask(Qt::AltModifier), 4);
    EXPECT_EQ(mask(Qt::ShiftModifier | Qt::ControlModifier), 3);
    EXPECT_EQ(mask(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
    EXPECT_EQ(mask(Qt::MetaModifier | Qt::KeypadModifier), 0);
}

TEST(EventEncodings, TheModifiersAreTheOnesStoredInTheEvent)
{
    // The toolkit reports a Shift key's own press as if Shift were held already.
    const QKeyEvent shift = keyEvent(QEvent::KeyPress, Qt::Key_Shift);
    ASSERT_TRUE(shift.modifiers() & Qt::ShiftModifier);
    EXPECT_EQ(Monitor::genericModifiersForEvent(shift), 0);
}
