// How a file is asked for, and what becomes of the answer.
#include "integration/services/SelectFileService.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "ui_qt/LaunchFileDialog.h"
#include "ui_qt/OverrideCursor.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <memory>

namespace velmora::test {

namespace {

using sdk::integration::SelectFileOption_e;
using sdk::integration::services::SelectFileService;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

const SelectFileOption_e Single = sdk::integration::SelectFileOption_ReadSingleFile;
const SelectFileOption_e Write = sdk::integration::SelectFileOption_WriteFile;
const SelectFileOption_e Multiple = sdk::integration::SelectFileOption_ReadMultipleFiles;

struct Seen {
    std::string title;
    std::string folder;
    std::string name;
    std::vector<std::string> filters;
    QFileDialog::FileMode mode = QFileDialog::Directory;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    bool modal = false;
    QWidget* parent = nullptr;
};

typedef std::function<void(QFileDialog&)> Answer;

QLineEdit& nameField(QFileDialog& dialog)
{
    return *dialog.findChild<QLineEdit*>(QString::fromLatin1("fileNameEdit"));
}

Seen look(QFileDialog& dialog)
{
    Seen seen;
    seen.title = dialog.windowTitle().toUtf8().constData();
    seen.folder = dialog.directory().absolutePath().toUtf8().constData();
    seen.name = nameField(dialog).text().toUtf8().constData();
    for (const QString& filter : dialog.nameFilters())
        seen.filters.push_back(filter.toUtf8().constData());
    seen.mode = dialog.fileMode();
    seen.acceptMode = dialog.acceptMode();
    seen.modal = dialog.isModal();
    seen.parent = dialog.parentWidget();
    return seen;
}

Answer typingName(const std::string& name)
{
    return [name](QFileDialog& dialog) {
        // The name comes at once: fake keys exist only for what is on the keyboard.
        nameField(dialog).setText(QString::fromUtf8(name.c_str()));
        QWidget* const open = dialog.findChild<QDialogButtonBox*>()->button(
            dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
        ASSERT_TRUE(waitUntil([&] { return open->isEnabled(); }));
        click(*open, open->rect().center());
    };
}

void pressingEscape(QFileDialog&)
{
    typeKey(XK_Escape);
}

// As when the person works in another program.
void leaveAllWindows()
{
    QApplication::setActiveWindow(nullptr);
    ASSERT_TRUE(waitUntil([] { return !QApplication::activeWindow(); }));
}

// A folder with files in it, and a dialog that a person answers.
class FileDialogs : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern = ::testing::TempDir() + "file_dialogs_XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(&pattern[0]));
        m_folder = std::filesystem::canonical(pattern).string();
    }

    void TearDown() override { std::filesystem::remove_all(m_folder); }

    const std::string& folder() const { return m_folder; }

    std::string makeFile(const std::string& name)
    {
        const QString path = QString::fromUtf8((m_folder + '/' + name).c_str());
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path.toUtf8().constData();
    }

    bool ask(SelectFileOption_e option, const char* title, const char* offered, const char* filter,
             const Answer& answer)
    {
        ModalDriver person([&](QWidget& window) {
            QFileDialog& dialog = dynamic_cast<QFileDialog&>(window);
            m_seen = look(dialog);
            answer(dialog);
        });
        const bool chosen = m_service.displayFileDialog(option, title, offered, filter, m_result);
        EXPECT_TRUE(person.hasActed());
        EXPECT_FALSE(person.hadToClose());
        return chosen;
    }

    bool launch(std::vector<std::string>& selected, int& index, const std::vector<std::string>& filters,
                const std::vector<std::string>& offered, bool multiple, bool save, int initial, const Answer& answer)
    {
        ModalDriver person([&](QWidget& window) {
            QFileDialog& dialog = dynamic_cast<QFileDialog&>(window);
            m_seen = look(dialog);
            answer(dialog);
        });
        const bool chosen = ui::LaunchFileDialog(selected, index, "Title", filters, offered, multiple, save, initial);
        EXPECT_FALSE(person.hadToClose());
        return chosen;
    }

    std::string m_folder;
    SelectFileService m_service;
    Seen m_seen;
    std::string m_result = "untouched";
};

} // namespace

TEST_F(FileDialogs, TheTextsReachTheirPlacesInTheDialog)
{
    const std::string file = makeFile("table.csv");
    EXPECT_TRUE(ask(Single, "Öffnen – ανοίγω", file.c_str(), "Tables (*.csv *.txt)", typingName("table.csv")));
    EXPECT_EQ("Öffnen – ανοίγω", m_seen.title);
    EXPECT_EQ(folder(), m_seen.folder);
    EXPECT_EQ("table.csv", m_seen.name);
    EXPECT_THAT(m_seen.filters, ElementsAre("Tables (*.csv *.txt)"));
    EXPECT_EQ(QFileDialog::AnyFile, m_seen.mode);
    EXPECT_EQ(QFileDialog::AcceptOpen, m_seen.acceptMode);
    EXPECT_TRUE(m_seen.modal);
    EXPECT_EQ(file, m_result);
}

TEST_F(FileDialogs, WithoutAFileOfferedTheNameIsEmpty)
{
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ("", m_seen.name);
    const std::string folderBefore = m_seen.folder;
    EXPECT_FALSE(ask(Single, "Open", "", "All (*)", pressingEscape));
    EXPECT_EQ("", m_seen.name);
    EXPECT_EQ(folderBefore, m_seen.folder);
}

TEST_F(FileDialogs, AFolderThatIsOfferedIsOpened)
{
    EXPECT_FALSE(ask(Single, "Open", folder().c_str(), "All (*)", pressingEscape));
    EXPECT_EQ(folder(), m_seen.folder);
    EXPECT_EQ("", m_seen.name);
}

TEST_F(FileDialogs, AFileThatDoesNotExistIsOfferedInItsFolder)
{
    EXPECT_FALSE(ask(Single, "Open", (folder() + "/not yet.csv").c_str(), "All (*)", pressingEscape));
    EXPECT_EQ(folder(), m_seen.folder);
    EXPECT_EQ("not yet.csv", m_seen.name);
}

TEST_F(FileDialogs, ACancelledDialogLeavesTheResult)
{
    makeFile("a.csv");
    const Answer cancels[] = {&pressingEscape, [](QFileDialog& dialog) { closeByWindowManager(dialog); },
                              [](QFileDialog& dialog) {
                                  QWidget* const button =
                                      dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
                                  click(*button, button->rect().center());
                              }};
    for (const Answer& cancel : cancels) {
        EXPECT_FALSE(ask(Single, "Open", folder().c_str(), "All (*)", cancel));
        EXPECT_EQ("untouched", m_result);
    }
}

TEST_F(FileDialogs, NamesOfEveryKindComeBackWhole)
{
    const std::string names[] = {"two words.csv", "été-größe.csv", "θερμοκρασία.csv", "\xF0\x9F\x8E\x89.csv",
                                 "a'b&c;d.csv"};
    for (const std::string& name : names) {
        const std::string file = makeFile(name);
        EXPECT_TRUE(ask(Single, "Open", folder().c_str(), "All (*)", typingName(name))) << name;
        EXPECT_EQ(file, m_result);
    }
}

TEST_F(FileDialogs, APathOfTwoHundredCharactersComesBackWhole)
{
    const std::string file = makeFile(std::string(90, 'd') + "/" + std::string(100, 'e') + "/" + std::string(40, 'f'));
    ASSERT_GT(file.size(), 200u);
    EXPECT_TRUE(ask(Single, "Open", nullptr, "All (*)", typingName(file)));
    EXPECT_EQ(file, m_result);
}

TEST_F(FileDialogs, OnlyOptionThreeAllowsSeveralFiles)
{
    for (int option = -1; option <= 5; ++option) {
        EXPECT_FALSE(ask(static_cast<SelectFileOption_e>(option), "Open", nullptr, "All (*)", pressingEscape));
        EXPECT_EQ(option == 3 ? QFileDialog::ExistingFiles : QFileDialog::AnyFile, m_seen.mode) << option;
        EXPECT_EQ(QFileDialog::AcceptOpen, m_seen.acceptMode) << option;
    }
}

TEST_F(FileDialogs, OfSeveralFilesTheFirstComesBack)
{
    // First in the folder, too: that is the order that the toolkit tells once it has read the folder.
    const std::string first = makeFile("a.csv");
    makeFile("b.csv");
    EXPECT_TRUE(ask(Multiple, "Open", folder().c_str(), "All (*)", typingName("\"a.csv\" \"b.csv\"")));
    EXPECT_EQ(first, m_result);
}

TEST_F(FileDialogs, AFileToWriteMayBeNewOrBeThereAlready)
{
    const std::string old = makeFile("old.csv");
    EXPECT_TRUE(ask(Write, "Write", folder().c_str(), "All (*)", typingName("brand new.csv")));
    EXPECT_EQ(folder() + "/brand new.csv", m_result);
    EXPECT_TRUE(ask(Write, "Write", folder().c_str(), "All (*)", typingName("old.csv")));
    EXPECT_EQ(old, m_result);
}

TEST_F(FileDialogs, EmptyTextsAreNoError)
{
    const std::string file = makeFile("a.csv");
    EXPECT_TRUE(ask(Single, "", folder().c_str(), "", typingName("a.csv")));
    EXPECT_EQ(file, m_result);
}

TEST_F(FileDialogs, ALaunchedDialogTellsAllFilesAndTheFilterInForce)
{
    const std::string a = makeFile("a.txt"), b = makeFile("b.txt");
    std::vector<std::string> selected = {"left over"};
    int index = -1;
    EXPECT_TRUE(launch(selected, index, {"Tables (*.csv)", "Texts (*.txt)", "All (*)"}, {folder()}, true, false, 1,
                       typingName("\"a.txt\" \"b.txt\"")));
    EXPECT_THAT(selected, UnorderedElementsAre(a, b));
    EXPECT_EQ(1, index);
    EXPECT_THAT(m_seen.filters, ElementsAre("Tables (*.csv)", "Texts (*.txt)", "All (*)"));
}

TEST_F(FileDialogs, AnInitialFilterThatIsNotThereIsTheFirst)
{
    const std::string a = makeFile("a.txt");
    const int beyond[] = {-1, 2, 100};
    for (const int initial : beyond) {
        std::vector<std::string> selected;
        int index = -1;
        EXPECT_TRUE(launch(selected, index, {"Texts (*.txt)", "All (*)"}, {folder()}, false, false, initial,
                           typingName("a.txt")));
        EXPECT_THAT(selected, ElementsAre(a));
        EXPECT_EQ(0, index);
    }
}

TEST_F(FileDialogs, ACancelledLaunchLeavesWhatItWasGiven)
{
    std::vector<std::string> selected = {"left over"};
    int index = 7;
    EXPECT_FALSE(launch(selected, index, {"All (*)"}, {}, false, false, 0, &pressingEscape));
    EXPECT_THAT(selected, ElementsAre("left over"));
    EXPECT_EQ(7, index);
}

TEST_F(FileDialogs, ADialogToSaveTakesAName)
{
    std::vector<std::string> selected;
    int index = -1;
    EXPECT_TRUE(launch(selected, index, {"Texts (*.txt)"}, {folder() + "/old.txt"}, false, true, 0,
                       typingName("brand new.txt")));
    EXPECT_EQ(QFileDialog::AcceptSave, m_seen.acceptMode);
    EXPECT_EQ(QFileDialog::AnyFile, m_seen.mode);
    EXPECT_EQ("old.txt", m_seen.name);
    EXPECT_THAT(selected, ElementsAre(folder() + "/brand new.txt"));
}

TEST_F(FileDialogs, TheDialogBelongsToTheActiveWindow)
{
    QWidget window;
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    ASSERT_TRUE(waitUntil([&] { return QApplication::activeWindow() == &window; }));
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ(&window, m_seen.parent);
}

TEST_F(FileDialogs, WithoutAnActiveWindowTheDialogBelongsToTheMainWindow)
{
    QWidget other;
    QMainWindow hidden;
    QMainWindow window;
    ASSERT_TRUE(showAndWait(other));
    ASSERT_TRUE(showAndWait(window));
    leaveAllWindows();
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ(&window, m_seen.parent);
}

TEST_F(FileDialogs, WithoutAnActiveOrMainWindowTheDialogBelongsToAWindowThatIsShown)
{
    QWidget hidden;
    QWidget tip(nullptr, Qt::ToolTip);
    QWidget window;
    ASSERT_TRUE(showAndWait(tip));
    ASSERT_TRUE(showAndWait(window));
    leaveAllWindows();
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ(&window, m_seen.parent);
}

TEST_F(FileDialogs, OverAModalDialogItBelongsToThat)
{
    QMainWindow window;
    ASSERT_TRUE(showAndWait(window));
    QDialog dialog(&window);
    dialog.setModal(true);
    ASSERT_TRUE(showAndWait(dialog));
    leaveAllWindows();
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ(&dialog, m_seen.parent);
}

TEST_F(FileDialogs, WithoutAnyWindowTheDialogStandsAlone)
{
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", pressingEscape));
    EXPECT_EQ(nullptr, m_seen.parent);
}

TEST_F(FileDialogs, ADialogWhoseParentIsDestroyedIsNotConfirmed)
{
    std::unique_ptr<QWidget> window(new QWidget);
    ASSERT_TRUE(showAndWait(*window));
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", [&](QFileDialog&) { window.reset(); }));
    EXPECT_EQ("untouched", m_result);
}

TEST_F(FileDialogs, TheCursorIsAnArrowWhileTheDialogIsOpenAndComesBack)
{
    const Qt::CursorShape shapes[] = {Qt::WaitCursor, Qt::CrossCursor, Qt::ArrowCursor};
    for (const Qt::CursorShape shape : shapes) {
        const ui::OverrideCursor busy(shape);
        Qt::CursorShape during = Qt::BlankCursor;
        EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", [&](QFileDialog& dialog) {
            during = QApplication::overrideCursor()->shape();
            pressingEscape(dialog);
        }));
        EXPECT_EQ(Qt::ArrowCursor, during);
        EXPECT_EQ(shape, QApplication::overrideCursor()->shape());
    }
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

TEST_F(FileDialogs, WithoutAnOverrideCursorNoneIsSet)
{
    bool overridden = true;
    EXPECT_FALSE(ask(Single, "Open", nullptr, "All (*)", [&](QFileDialog& dialog) {
        overridden = QApplication::overrideCursor() != nullptr;
        pressingEscape(dialog);
    }));
    EXPECT_FALSE(overridden);
}

} // namespace velmora::test
