#include "tests/applications/RandomPerson.h"

#include <gtest/gtest.h>
#include <map>

namespace velmora::test {

namespace {

const char* const targets = "menu:10,10,40,20 button:100,200,50,30 spin:100,300,50,30 view:0,400,600,300 ";

std::vector<Gesture> actOften(unsigned long seed, RandomPerson::Manner manner, const std::string& where = targets)
{
    RandomPerson person(seed, manner);
    std::vector<Gesture> all;
    for (int i = 0; i < 500; ++i)
        for (const Gesture& gesture : person.act(where))
            all.push_back(gesture);
    return all;
}

std::string describeAll(const std::vector<Gesture>& gestures)
{
    std::string text;
    for (const Gesture& gesture : gestures)
        text += describe(gesture) + '\n';
    return text;
}

} // namespace

TEST(RandomPerson, TheSameSeedDoesTheSame)
{
    EXPECT_EQ(describeAll(actOften(1, RandomPerson::Hasty)), describeAll(actOften(1, RandomPerson::Hasty)));
    EXPECT_NE(describeAll(actOften(1, RandomPerson::Hasty)), describeAll(actOften(2, RandomPerson::Hasty)));
}

TEST(RandomPerson, ReleasesWhateverIsPressed)
{
    for (const RandomPerson::Manner manner : {RandomPerson::Hasty, RandomPerson::Patient}) {
        std::map<std::pair<int, long>, long> held;
        for (const Gesture& gesture : actOften(3, manner))
            for (const Input& input : gesture.inputs)
                if (input.kind == Input::Button || input.kind == Input::Key)
                    held[{input.kind, input.a}] += input.b != 0 ? 1 : -1;
        for (const auto& each : held)
            EXPECT_EQ(0, each.second) << each.first.second;
    }
}

TEST(RandomPerson, OnlyWhoIsHastyClosesAndResizesWindows)
{
    const auto closesOrResizes = [](RandomPerson::Manner manner, const std::string& where) {
        for (const Gesture& gesture : actOften(4, manner, where))
            for (const Input& input : gesture.inputs)
                if (input.kind == Input::Close || input.kind == Input::Resize)
                    return true;
        return false;
    };
    EXPECT_TRUE(closesOrResizes(RandomPerson::Hasty, targets));
    EXPECT_FALSE(closesOrResizes(RandomPerson::Patient, targets));
    EXPECT_FALSE(closesOrResizes(RandomPerson::Hasty, "popup:0,0,60,200 item:0,0,60,20 ")) << "the popup has the mouse";
}

TEST(RandomPerson, WhoIsPatientLeavesAFileDialog)
{
    for (const Gesture& gesture : actOften(5, RandomPerson::Patient, "files:0,0,300,300 button:10,10,50,30 "))
        for (const Input& input : gesture.inputs)
            EXPECT_EQ(Input::Key, input.kind);
}

} // namespace velmora::test
