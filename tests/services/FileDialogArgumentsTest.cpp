// What the file selection service hands to the function that shows the dialog, and what it takes
// from it. The function is this program's own.
#include "integration/services/SelectFileService.h"
#include "ui_qt/LaunchFileDialog.h"

#include <gmock/gmock.h>
#include <stdexcept>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

namespace {

struct Call {
    std::vector<std::string> selected;
    std::string title;
    std::vector<std::string> filters;
    std::vector<std::string> offered;
    bool multiple = false;
    bool save = true;
    int initialFilter = -1;
};

struct Person {
    std::vector<std::string> chooses;
    int filterIndex = 0;
    bool confirms = true;
    std::vector<Call> calls;
} person;

} // namespace

// Stands before the library's own for everybody in this process.
bool velmora::ui::LaunchFileDialog(std::vector<std::string>& selected, int& filterIndex, const std::string& title,
                                   const std::vector<std::string>& filters, const std::vector<std::string>& offered,
                                   bool multiple, bool save, int initialFilter)
{
    person.calls.push_back({selected, title, filters, offered, multiple, save, initialFilter});
    selected = person.chooses;
    filterIndex = person.filterIndex;
    return person.confirms;
}

namespace velmora::test {

namespace {

class FileDialogArguments : public ::testing::Test {
protected:
    FileDialogArguments()
    {
        person = Person();
        person.chooses = {"/chosen"};
    }

    Call callFor(int option, const char* text1, const char* text2, const char* text3)
    {
        m_answer = m_service.displayFileDialog(static_cast<sdk::integration::SelectFileOption_e>(option), text1, text2,
                                               text3, m_result);
        EXPECT_EQ(1u, person.calls.size());
        const Call call = person.calls.at(0);
        person.calls.clear();
        return call;
    }

    sdk::integration::services::SelectFileService m_service;
    std::string m_result = "untouched";
    bool m_answer = false;
};

} // namespace

TEST_F(FileDialogArguments, EveryTextGoesToItsPlace)
{
    const Call call = callFor(0, "Öffnen", "/data/a.csv", "Tables (*.csv);;All (*)");
    EXPECT_THAT(call.selected, IsEmpty());
    EXPECT_EQ("Öffnen", call.title);
    EXPECT_THAT(call.filters, ElementsAre("Tables (*.csv);;All (*)"));
    EXPECT_THAT(call.offered, ElementsAre("/data/a.csv"));
}

TEST_F(FileDialogArguments, WithoutAFileOfferedThatListIsEmpty)
{
    EXPECT_THAT(callFor(0, "Open", nullptr, "All (*)").offered, IsEmpty());
    EXPECT_THAT(callFor(0, "Open", "", "All (*)").offered, IsEmpty());
}

TEST_F(FileDialogArguments, AnEmptyFilterIsStillOneFilter)
{
    EXPECT_THAT(callFor(0, "", "", "").filters, ElementsAre(""));
}

TEST_F(FileDialogArguments, OnlyOptionThreeIsForSeveralFilesAndNothingElseChanges)
{
    for (int option = -1; option <= 5; ++option) {
        const Call call = callFor(option, "Open", nullptr, "All (*)");
        EXPECT_EQ(option == 3, call.multiple) << option;
        EXPECT_FALSE(call.save) << option;
        EXPECT_EQ(0, call.initialFilter) << option;
    }
}

TEST_F(FileDialogArguments, OfSeveralNamesTheFirstIsPassedBackWhateverTheFilter)
{
    person.chooses = {"/b", "/a"};
    person.filterIndex = 1;
    callFor(3, "Open", nullptr, "All (*)");
    EXPECT_TRUE(m_answer);
    EXPECT_EQ("/b", m_result);
}

TEST_F(FileDialogArguments, ANullTitleOrFilterIsALogicErrorAndNothingIsShown)
{
    const char* const null = nullptr;
    const char* const texts[][2] = {{null, "All (*)"}, {"Open", null}, {null, null}};
    for (const auto& text : texts) {
        EXPECT_THAT([&] { callFor(0, text[0], "a", text[1]); },
                    ThrowsMessage<std::logic_error>("basic_string::_M_construct null not valid"));
    }
    EXPECT_TRUE(person.calls.empty());
    EXPECT_EQ("untouched", m_result);
}

TEST_F(FileDialogArguments, WithoutAConfirmationTheResultStays)
{
    person.confirms = false;
    callFor(0, "Open", nullptr, "All (*)");
    EXPECT_FALSE(m_answer);
    EXPECT_EQ("untouched", m_result);
}

} // namespace velmora::test
