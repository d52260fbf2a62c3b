// The copies that are kept of interrupting events.

#include "tests/intern/MonitorFixture.h"
#include "tests/support/WheelEvents.h"

#include <QCloseEvent>
#include <QShortcutEvent>
#include <QSpinBox>
#include <QWheelEvent>
#include <memory>

using namespace velmora::test;

namespace {

QSpinBox& valueWidget()
{
    static QSpinBox* const spinBox = new QSpinBox; // lives as long as the application
    return *spinBox;
}

template <typename Event>
std::unique_ptr<Event> cloneOf(const QEvent& event, QObject& receiver)
{
    Probe::EventCloner cloner;
    Monitor::eventAnalyzer(event, receiver, cloner);
    std::unique_ptr<QEvent> clone(cloner.clonedEvent());
    Event* const typed = dynamic_cast<Event*>(clone.get());
    return typed ? (static_cast<void>(clone.release()), std::unique_ptr<Event>(typed)) : nullptr;
}

} // namespace

TEST(EventCloner, AMouseEventKeepsTypePositionsButtonsAndModifiers)
{
    QObject receiver;
    const QEvent::Type types[] = {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                  QEvent::MouseButtonDblClick};
    for (const QEvent::Type type : types) {
        const QMouseEvent event(type, QPoint(1, 2), QPoint(30, 40), Qt::MiddleButton, Qt::MiddleButton | Qt::LeftButton,
                                Qt::AltModifier);
        const auto clone = cloneOf<QMouseEvent>(event, receiver);
        ASSERT_TRUE(clone);
        EXPECT_EQ(clone->type(), type);
        EXPECT_EQ(clone->pos(), QPoint(1, 2));
        EXPECT_EQ(clone->globalPos(), QPoint(30, 40));
        EXPECT_EQ(clone->button(), Qt::MiddleButton);
        EXPECT_EQ(clone->buttons(), Qt::MiddleButton | Qt::LeftButton);
        EXPECT_EQ(clone->modifiers(), Qt::AltModifier);
    }
}

TEST(EventCloner, AKeyEventKeepsTypeKeyModifiersTextAutoRepeatAndCount)
{
    QObject receiver;
    const QEvent::Type types[] = {QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride};
    for (const QEvent::Type type : types) {
        const QKeyEvent event(type, Qt::Key_A, Qt::ControlModifier, QString("aa"), true, 2);
        const auto clone = cloneOf<QKeyEvent>(event, receiver);
        ASSERT_TRUE(clone);
        EXPECT_EQ(clone->type(), type);
        EXPECT_EQ(clone->key(), Qt::Key_A);
        EXPECT_EQ(clone->modifiers(), Qt::ControlModifier);
        EXPECT_EQ(clone->text(), QString("aa"));
        EXPECT_TRUE(clone->isAutoRepeat());
        EXPECT_EQ(clone->count(), 2);
    }
}

TEST(EventCloner, AModifierKeyIsStoredWithTheModifiersItReported)
{
    QObject receiver;
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier, QString());
    const auto clone = cloneOf<QKeyEvent>(event, receiver);
    ASSERT_TRUE(clone);
    EXPECT_EQ(Monitor::genericModifiersForEvent(*clone), 1);
}

TEST(EventCloner, AWheelTurnKeepsEverythingThatItHolds)
{
    QObject receiver;
    const QWheelEvent event =
        wheelEvent(QPoint(1, 2), QPoint(3, 4), -120, Qt::RightButton, Qt::ShiftModifier, Qt::Horizontal);
    const auto clone = cloneOf<QWheelEvent>(event, receiver);
    ASSERT_TRUE(clone);
    const WheelFacts facts = wheelFacts(*clone);
    EXPECT_EQ(facts.position, QPoint(1, 2));
    EXPECT_EQ(facts.onScreen, QPoint(3, 4));
    EXPECT_EQ(facts.delta, -120);
    EXPECT_EQ(clone->buttons(), Qt::RightButton);
    EXPECT_EQ(clone->modifiers(), Qt::ShiftModifier);
    EXPECT_EQ(facts.orientation, Qt::Horizontal);
}

TEST(EventCloner, AShortcutComesBackAsAPlainKeyPress)
{
    QObject receiver;
    const auto clone = cloneOf<QKeyEvent>(QShortcutEvent(QKeySequence(Qt::CTRL + Qt::Key_S), 1), receiver);
    ASSERT_TRUE(clone);
    EXPECT_EQ(clone->type(), QEvent::KeyPress);
    EXPECT_EQ(clone->key(), Qt::CTRL + Qt::Key_S);
    EXPECT_EQ(clone->text(), QString());
    EXPECT_FALSE(clone->isAutoRepeat());
    EXPECT_EQ(clone->count(), 1);
}

TEST(EventCloner, ATimerKeepsItsId)
{
    const auto clone = cloneOf<QTimerEvent>(QTimerEvent(77), valueWidget());
    ASSERT_TRUE(clone);
    EXPECT_EQ(clone->timerId(), 77);
}

TEST(EventCloner, AClosingStartsAccepted)
{
    QWidget window;
    QCloseEvent close;
    close.ignore();
    const auto clone = cloneOf<QCloseEvent>(close, window);
    ASSERT_TRUE(clone);
    EXPECT_TRUE(clone->isAccepted());
}

TEST(EventCloner, WhatTheAnalyzerDoesNotKnowIsNotCopied)
{
    QWidget window;
    QWidget inner(&window);
    EXPECT_FALSE(cloneOf<QEvent>(QEvent(QEvent::Paint), window));
    EXPECT_FALSE(cloneOf<QEvent>(QTimerEvent(77), window));
    EXPECT_FALSE(cloneOf<QEvent>(QCloseEvent(), inner));
}
