// What a message box shows, and what the engine hears of the answer.
#include "integration/services/MessageBoxService.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace velmora::test {

namespace {

using sdk::integration::MessageBoxType_e;
using sdk::integration::services::MessageBoxService;

struct Seen {
    QWidget* parent = nullptr;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    int buttons = 0;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    bool modal = false;
    int overrideShape = -1;
};

Seen look(const QMessageBox& box)
{
    Seen seen;
    seen.parent = box.parentWidget();
    seen.title = box.windowTitle();
    seen.text = box.text();
    seen.icon = box.icon();
    seen.buttons = static_cast<int>(box.standardButtons());
    seen.defaultButton = box.standardButton(box.defaultButton());
    seen.modal = box.isModal();
    if (const QCursor* const cursor = QApplication::overrideCursor())
        seen.overrideShape = cursor->shape();
    return seen;
}

typedef std::function<void(QMessageBox&)> Answer;

struct Outcome {
    unsigned reply = 0;
    Seen seen;
};

Outcome show(MessageBoxService& service, const char* text, int type, const Answer& answer)
{
    Outcome outcome;
    ModalDriver person([&](QWidget& window) {
        QMessageBox& box = dynamic_cast<QMessageBox&>(window);
        outcome.seen = look(box);
        answer(box);
    });
    outcome.reply = service.displayMessageBox(text, static_cast<MessageBoxType_e>(type));
    EXPECT_TRUE(person.hasActed());
    EXPECT_FALSE(person.hadToClose());
    return outcome;
}

Answer clicking(QMessageBox::StandardButton which)
{
    return [which](QMessageBox& box) {
        const QWidget& button = *box.button(which);
        click(button, button.rect().center());
    };
}

Answer typing(unsigned long key)
{
    return [key](QMessageBox&) { typeKey(key); };
}

void closing(QMessageBox& box)
{
    closeByWindowManager(box);
}

const unsigned Yes = 0, No = 1, Cancel = 2, Ok = 3, Error = 255;
const int OkCancel = 0x400400, YesNo = 0x14000, YesNoCancel = 0x414000, JustOk = 0x400;

struct Row {
    int type;
    const char* title;
    QMessageBox::Icon icon;
    int buttons;
    QMessageBox::StandardButton defaultButton;
};

// Where the service names no default button, the toolkit takes the first that accepts.
const Row Rows[] = {{0, "Error", QMessageBox::Critical, JustOk, QMessageBox::Ok},
                    {1, "Warning", QMessageBox::Warning, JustOk, QMessageBox::Ok},
                    {2, "Information", QMessageBox::Information, JustOk, QMessageBox::Ok},
                    {3, "Question", QMessageBox::Question, OkCancel, QMessageBox::Cancel},
                    {4, "Question", QMessageBox::Question, YesNo, QMessageBox::Yes},
                    {5, "Question", QMessageBox::Question, YesNoCancel, QMessageBox::Cancel},
                    {6, "Information", QMessageBox::Warning, OkCancel, QMessageBox::Cancel}};

struct Choice {
    QMessageBox::StandardButton button;
    unsigned reply;
};
const Choice Choices[] = {
    {QMessageBox::Ok, Ok}, {QMessageBox::Yes, Yes}, {QMessageBox::No, No}, {QMessageBox::Cancel, Cancel}};

} // namespace

TEST(MessageBoxes, EveryTypeShowsItsTitleIconAndButtons)
{
    MessageBoxService service;
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.type);
        const Seen seen = show(service, "Nothing to see", row.type, typing(XK_Return)).seen;
        EXPECT_EQ(row.title, seen.title.toStdString());
        EXPECT_EQ("Nothing to see", seen.text.toStdString());
        EXPECT_EQ(row.icon, seen.icon);
        EXPECT_EQ(row.buttons, seen.buttons);
        EXPECT_EQ(row.defaultButton, seen.defaultButton);
        EXPECT_TRUE(seen.modal);
    }
}

TEST(MessageBoxes, EachButtonOfEachTypeGivesItsReply)
{
    MessageBoxService service;
    int clicks = 0;
    for (const Row& row : Rows)
        for (const Choice& choice : Choices) {
            if (!(row.buttons & choice.button))
                continue;
            SCOPED_TRACE(testing::Message() << "type " << row.type << ", button " << choice.button);
            EXPECT_EQ(choice.reply, show(service, "?", row.type, clicking(choice.button)).reply);
            ++clicks;
        }
    EXPECT_EQ(12, clicks);
}

TEST(MessageBoxes, ReturnTakesTheDefaultButton)
{
    MessageBoxService service;
    const unsigned replies[] = {Ok, Ok, Ok, Cancel, Yes, Cancel, Cancel};
    for (int type = 0; type < 7; ++type) {
        SCOPED_TRACE(type);
        EXPECT_EQ(replies[type], show(service, "?", type, typing(XK_Return)).reply);
    }
}

TEST(MessageBoxes, EscapeAndClosingTheWindowTakeTheButtonThatDeclines)
{
    MessageBoxService service;
    const unsigned replies[] = {Ok, Ok, Ok, Cancel, No, Cancel, Cancel};
    for (int type = 0; type < 7; ++type) {
        SCOPED_TRACE(type);
        EXPECT_EQ(replies[type], show(service, "?", type, typing(XK_Escape)).reply);
        EXPECT_EQ(replies[type], show(service, "?", type, closing).reply);
    }
}

TEST(MessageBoxes, ABoxThatGoesWithoutAButtonGives255)
{
    MessageBoxService service;
    EXPECT_EQ(Error, show(service, "?", 5, [](QMessageBox& box) { box.hide(); }).reply);
}

TEST(MessageBoxes, ATypeBeyondTheTableShowsNothingAndGives255)
{
    MessageBoxService service;
    ModalDriver person([](QWidget& window) { static_cast<QDialog&>(window).reject(); });
    const int beyond[] = {7, 8, 100, -1};
    for (const int type : beyond)
        EXPECT_EQ(Error, service.displayMessageBox("?", static_cast<MessageBoxType_e>(type)));
    EXPECT_FALSE(person.hasActed());
}

TEST(MessageBoxes, TextIsShownAsItCame)
{
    MessageBoxService service;
    const std::string texts[] = {"",           "Größe à l'été",        "θερμοκρασία", "done \xF0\x9F\x8E\x89",
                                 "two\nlines", std::string(10000, 'm')};
    for (const std::string& text : texts)
        EXPECT_EQ(text, show(service, text.c_str(), 2, typing(XK_Return)).seen.text.toUtf8().constData());
}

TEST(MessageBoxes, WithoutAnyWindowTheBoxHasNoParent)
{
    ASSERT_TRUE(QApplication::topLevelWidgets().isEmpty());
    MessageBoxService service;
    EXPECT_EQ(nullptr, show(service, "?", 0, typing(XK_Return)).seen.parent);
}

TEST(MessageBoxes, WithoutAMainWindowTheFirstWindowIsTheParent)
{
    QWidget first, second;
    QDialog third;
    MessageBoxService service;
    QWidget* const expected = QApplication::topLevelWidgets().first();
    EXPECT_EQ(expected, show(service, "?", 0, typing(XK_Return)).seen.parent);
}

TEST(MessageBoxes, AMainWindowIsTheParentWhateverElseThereIs)
{
    QWidget first;
    QDialog second;
    QMainWindow main;
    QWidget third;
    MessageBoxService service;
    EXPECT_EQ(&main, show(service, "?", 4, clicking(QMessageBox::No)).seen.parent);
}

TEST(MessageBoxes, OfSeveralMainWindowsTheFirstOfTheToolkitsListIsTheParent)
{
    std::vector<std::unique_ptr<QMainWindow>> windows;
    for (int i = 0; i < 4; ++i)
        windows.push_back(std::make_unique<QMainWindow>());
    MessageBoxService service;
    // The order of the list is the toolkit's own affair; each window is taken away when it was first.
    while (!windows.empty()) {
        QWidget* const first = QApplication::topLevelWidgets().first();
        EXPECT_EQ(first, show(service, "?", 0, typing(XK_Return)).seen.parent);
        windows.erase(std::find_if(windows.begin(), windows.end(),
                                   [first](const std::unique_ptr<QMainWindow>& one) { return one.get() == first; }));
    }
}

TEST(MessageBoxes, WhatAnEarlierBoxLeftIsNeverTheParent)
{
    std::unique_ptr<QWidget> window(new QWidget);
    window->setFocusPolicy(Qt::StrongFocus);
    ASSERT_TRUE(showAndWait(*window));
    window->setFocus();
    ASSERT_TRUE(waitUntil([&] { return QApplication::focusWidget() == window.get(); }));

    MessageBoxService service;
    service.displayMessageBox("?", static_cast<MessageBoxType_e>(7));
    ASSERT_EQ(2, QApplication::topLevelWidgets().size());
    window.reset();
    EXPECT_EQ(nullptr, show(service, "?", 0, typing(XK_Return)).seen.parent);
}

TEST(MessageBoxes, AWaitCursorIsAnArrowOverTheBoxAndBackAfterwards)
{
    MessageBoxService service;
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    EXPECT_EQ(Qt::ArrowCursor, show(service, "?", 0, typing(XK_Return)).seen.overrideShape);
    ASSERT_NE(nullptr, QApplication::overrideCursor());
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

TEST(MessageBoxes, WithoutAnOverrideCursorNoneIsSet)
{
    MessageBoxService service;
    EXPECT_EQ(-1, show(service, "?", 0, typing(XK_Return)).seen.overrideShape);
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

TEST(MessageBoxes, AnArrowThatOverridesIsLeftAlone)
{
    MessageBoxService service;
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
    int shapeBelow = -1;
    show(service, "?", 0, [&](QMessageBox&) {
        // One step down the stack tells whether the box has put an arrow of its own on it.
        QApplication::restoreOverrideCursor();
        shapeBelow = QApplication::overrideCursor()->shape();
        QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
        typeKey(XK_Return);
    });
    EXPECT_EQ(Qt::WaitCursor, shapeBelow);
    EXPECT_EQ(Qt::ArrowCursor, QApplication::overrideCursor()->shape());
    QApplication::restoreOverrideCursor();
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

TEST(MessageBoxes, ABoxInsideABoxIsAnsweredFirst)
{
    QMainWindow main;
    ASSERT_TRUE(showAndWait(main));
    MessageBoxService service;
    unsigned inner = 0;
    const Outcome outer = show(service, "outer", 4, [&](QMessageBox& box) {
        inner = show(service, "inner", 3, clicking(QMessageBox::Ok)).reply;
        ASSERT_TRUE(waitUntil([&] { return QApplication::activeModalWidget() == &box; }));
        // A press that comes at once is taken for the second one of a double click on the inner box.
        processPending();
        clicking(QMessageBox::Yes)(box);
    });
    EXPECT_EQ(Ok, inner);
    EXPECT_EQ(Yes, outer.reply);
}

} // namespace velmora::test
