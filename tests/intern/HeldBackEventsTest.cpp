// What a host chooses: hold everything back while the engine unwinds, or only what a person does.
#include "integration/HeldBackEvents.h"
#include "tests/intern/CountingSlot.h"
#include "tests/intern/InterruptedEventFixture.h"
#include "tests/support/Wait.h"

#include <QDropEvent>
#include <QMimeData>
#include <array>

using namespace velmora::test;
using namespace velmora::sdk::integration;

namespace {

class HeldBackEvents : public InterruptedEvent {
protected:
    ~HeldBackEvents() override { setHeldBackEvents(HeldBackEvents_All); }
};

const std::array<QEvent::Type, 22> inputTypes = {QEvent::MouseButtonPress,
                                                 QEvent::MouseButtonRelease,
                                                 QEvent::MouseButtonDblClick,
                                                 QEvent::MouseMove,
                                                 QEvent::KeyPress,
                                                 QEvent::KeyRelease,
                                                 QEvent::ShortcutOverride,
                                                 QEvent::Shortcut,
                                                 QEvent::Wheel,
                                                 QEvent::TouchBegin,
                                                 QEvent::TouchUpdate,
                                                 QEvent::TouchEnd,
                                                 QEvent::TabletPress,
                                                 QEvent::TabletMove,
                                                 QEvent::TabletRelease,
                                                 QEvent::ContextMenu,
                                                 QEvent::InputMethod,
                                                 QEvent::DragEnter,
                                                 QEvent::DragMove,
                                                 QEvent::DragLeave,
                                                 QEvent::Drop,
                                                 QEvent::Close};

bool isInput(int type)
{
    return std::find(inputTypes.begin(), inputTypes.end(), type) != inputTypes.end();
}

bool isTakenForItsClass(int type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop ||
           type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

} // namespace

TEST_F(HeldBackEvents, EverythingIsHeldBackUntilAHostChooses)
{
    EXPECT_EQ(heldBackEvents(), HeldBackEvents_All);
}

TEST_F(HeldBackEvents, OfInputNothingPassesAndOfEverythingElseAll)
{
    setHeldBackEvents(HeldBackEvents_Input);
    QKeyEvent first = keyEvent(QEvent::KeyRelease, Qt::Key_A); // so that none of the following is copied
    beginInterruption();
    QCoreApplication::sendEvent(&widget, &first);
    for (int type = 1; type < QEvent::User; ++type) {
        if (isTakenForItsClass(type))
            continue;
        QEvent event(static_cast<QEvent::Type>(type));
        EXPECT_EQ(Probe::filter(monitor).eventFilter(&other, &event), isInput(type)) << type;
    }
}

TEST_F(HeldBackEvents, MouseAndDropAreInput)
{
    setHeldBackEvents(HeldBackEvents_Input);
    beginInterruption();
    QMimeData data;
    QDropEvent drop(QPoint(1, 1), Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent press = mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &press));
    EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &drop));
}

TEST_F(HeldBackEvents, AQueuedCallDuringAnInterruptionArrivesWhenOnlyInputIsHeldBack)
{
    for (const HeldBackEvents_e choice : {HeldBackEvents_Input, HeldBackEvents_All}) {
        setHeldBackEvents(choice);
        CountingSlot slot;
        beginInterruption();
        QMetaObject::invokeMethod(&slot, "call", Qt::QueuedConnection);
        QCoreApplication::sendPostedEvents(&slot, 0);
        unwind();
        EXPECT_EQ(slot.calls, choice == HeldBackEvents_Input ? 1 : 0);
    }
}

TEST_F(HeldBackEvents, ThePlaceOfTheFirstEventIsTheFirstInputs)
{
    setHeldBackEvents(HeldBackEvents_Input);
    beginInterruption();
    sendPlain(other, QEvent::Paint);
    EXPECT_FALSE(Probe::filter(monitor).hasInterruptedEvent());
    sendKey(widget, Qt::Key_A);
    unwind();
    journal.clear();
    sendTrigger(other);
    EXPECT_THAT(received(), ::testing::ElementsAre("widget: KeyRelease " + A, "other: User"));
}

TEST_F(HeldBackEvents, ADropThatIsSwallowedIsAnsweredWithNoAction)
{
    for (const HeldBackEvents_e choice : {HeldBackEvents_All, HeldBackEvents_Input}) {
        setHeldBackEvents(choice);
        beginInterruption();
        QMimeData data;
        QDropEvent drop(QPoint(1, 1), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(Qt::MoveAction);
        EXPECT_TRUE(Probe::filter(monitor).eventFilter(&widget, &drop));
        EXPECT_EQ(drop.dropAction(), Qt::IgnoreAction);
        unwind();
        sendTrigger(other);
    }
}
