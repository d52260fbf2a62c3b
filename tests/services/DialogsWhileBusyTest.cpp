// What a person can do with a dialog that the engine opened in the middle of its work: everything,
// although input is held back from all the rest of the application then.
#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"

#include "engine/VelEng.h"
#include "testing/EngineProbe.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/ToolkitFacts.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTimerEvent>
#include <gtest/gtest.h>

namespace velmora::test {

namespace {

using sdk::integration::Manager;
using sdk::integration::intern::ApplicationEventMonitorAbstract;
using testing::EngineProbe;

const int PatienceMilliseconds = 30000;

/// Ends the work when it lasts too long, so that a dialog that gets no events fails its test and
/// does not freeze it. Asked before the monitor, which would hold its timer back as well.
class Rescue : public QObject {
public:
    Rescue()
    {
        qApp->installEventFilter(this);
        m_timer = startTimer(50);
        m_clock.start();
    }

    bool wasNeeded() const { return m_wasNeeded; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool ofTimer = watched == this && event->type() == QEvent::Timer;
        if (ofTimer && static_cast<QTimerEvent*>(event)->timerId() == m_timer &&
            m_clock.elapsed() > PatienceMilliseconds)
            endWork();
        return ofTimer;
    }

private:
    void endWork()
    {
        m_wasNeeded = true;
        EngineProbe::setBusy(false);
        if (QDialog* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    }

    QElapsedTimer m_clock;
    int m_timer = 0;
    bool m_wasNeeded = false;
};

class DialogsWhileBusy : public ::testing::Test {
protected:
    DialogsWhileBusy()
        : m_manager(Manager::getInstance()),
          m_monitor(dynamic_cast<ApplicationEventMonitorAbstract&>(m_manager.getApplicationEventMonitor()))
    {}

    void SetUp() override
    {
        static char name[] = "test_dialogs_while_busy";
        char* const arguments[] = {name, nullptr};
        ASSERT_EQ(sdk::integration::ManagerStartReturnCode_Ok, m_manager.init(1, arguments, "", "host"));
        m_manager.start();
        ASSERT_TRUE(showAndWait(m_window));
        EngineProbe::setBusy(true);
    }

    void TearDown() override
    {
        EngineProbe::reset();
        m_manager.stop();
    }

    /// Shows the engine's question and answers it; the reply.
    unsigned ask(int type, const std::function<void(QWidget&)>& answer)
    {
        const Rescue rescue;
        ModalDriver person([&](QWidget& box) {
            m_interruptible = m_monitor.isEngineInterruptible();
            m_shouldInterrupt = m_monitor.shouldInterrupt();
            answer(box);
        });
        const unsigned reply = VelEngMessageBoxShow("Go on?", type);
        EXPECT_TRUE(person.hasActed());
        EXPECT_FALSE(person.hadToClose());
        EXPECT_FALSE(rescue.wasNeeded());
        return reply;
    }

    /// Qt 4 does not tell that the box's loop has ended: it counts until the next turn.
    void letBoxBeForgotten()
    {
        if (!countsEventLoops())
            m_monitor.processWhileBusy();
    }

    static void clickOn(QWidget& box, QMessageBox::StandardButton which)
    {
        const QWidget& button = *dynamic_cast<QMessageBox&>(box).button(which);
        click(button, button.rect().center());
    }

    Manager& m_manager;
    ApplicationEventMonitorAbstract& m_monitor;
    QMainWindow m_window;
    bool m_interruptible = true;
    bool m_shouldInterrupt = true;
};

const unsigned Yes = 0, No = 1, Cancel = 2, Ok = 3;

} // namespace

TEST_F(DialogsWhileBusy, AClickReachesItsButton)
{
    EXPECT_EQ(Ok, ask(sdk::integration::MessageBoxType_OkCancel, [](QWidget& box) { clickOn(box, QMessageBox::Ok); }));
    EXPECT_EQ(No,
              ask(sdk::integration::MessageBoxType_YesNoCancel, [](QWidget& box) { clickOn(box, QMessageBox::No); }));
    EXPECT_FALSE(m_monitor.shouldInterrupt());
}

TEST_F(DialogsWhileBusy, EscapeDeclinesTheBoxAndStopsNothing)
{
    EXPECT_EQ(Cancel, ask(sdk::integration::MessageBoxType_YesNoCancel, [](QWidget&) { typeKey(XK_Escape); }));
    EXPECT_FALSE(m_interruptible);
    letBoxBeForgotten();
    EXPECT_FALSE(m_monitor.shouldInterrupt());
    EXPECT_TRUE(m_monitor.isEngineInterruptible());
}

TEST_F(DialogsWhileBusy, TheWindowManagerClosesTheBoxAndStopsNothing)
{
    EXPECT_EQ(No, ask(sdk::integration::MessageBoxType_YesNo, [](QWidget& box) { closeByWindowManager(box); }));
    EXPECT_FALSE(m_monitor.shouldInterrupt());
}

TEST_F(DialogsWhileBusy, AskingToStopDoesNothingWhileTheBoxIsOpen)
{
    EXPECT_EQ(Yes, ask(sdk::integration::MessageBoxType_YesNo, [this](QWidget&) {
                  m_monitor.interrupt();
                  typeKey(XK_Return);
              }));
    EXPECT_FALSE(m_monitor.shouldInterrupt());
}

TEST_F(DialogsWhileBusy, AStopThatWasAskedForBeforeTakesEffectOnceTheBoxIsClosed)
{
    m_monitor.interrupt();
    ASSERT_TRUE(m_monitor.shouldInterrupt());
    const std::function<void(QWidget&)> answers[] = {[](QWidget& box) { clickOn(box, QMessageBox::No); },
                                                     [](QWidget&) { typeKey(XK_Escape); },
                                                     [](QWidget& box) { closeByWindowManager(box); }};
    for (const std::function<void(QWidget&)>& answer : answers) {
        EXPECT_EQ(No, ask(sdk::integration::MessageBoxType_YesNo, answer));
        EXPECT_FALSE(m_shouldInterrupt);
        letBoxBeForgotten();
        EXPECT_TRUE(m_monitor.shouldInterrupt());
    }
    EXPECT_TRUE(m_monitor.processWhileBusy());
    EngineProbe::setBusy(false);
    EXPECT_FALSE(m_monitor.shouldInterrupt());
}

TEST_F(DialogsWhileBusy, AFileIsChosen)
{
    const Rescue rescue;
    ModalDriver person([](QWidget& dialog) {
        dialog.findChild<QLineEdit*>(QString::fromLatin1("fileNameEdit"))->setText(QString::fromLatin1("/tmp/new.csv"));
        QWidget* const open = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
        ASSERT_TRUE(waitUntil([open] { return open->isEnabled(); }));
        click(*open, open->rect().center());
    });
    char name[64] = "";
    EXPECT_EQ(1, VelEngSelectFile(sdk::integration::SelectFileOption_WriteFile, "Write", nullptr, "All (*)", name,
                                  sizeof name));
    EXPECT_STREQ("/tmp/new.csv", name);
    EXPECT_FALSE(person.hadToClose());
    EXPECT_FALSE(rescue.wasNeeded());
}

} // namespace velmora::test
