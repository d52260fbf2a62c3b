#include "toolbox/StyleValue.h"

#include "engine/api/VelArgList.h"
#include "engine/style/StyleCodes.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"
#include "toolbox/ArgList.h"
#include "toolbox/StringList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace velmora::engine::style;
using ::testing::ElementsAre;
using velmora::testing::EngineProbe;
using velmora::toolbox::ArgList;
using velmora::toolbox::StringList;
using velmora::toolbox::StyleValue;

namespace {

constexpr int Replace = 255;

std::vector<long> idsOf(const char* name1, const char* name2 = nullptr, const char* name3 = nullptr)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, name1, name2, name3);
    return ids;
}

template <typename T>
int readFinal(const StyleValue& style, const std::vector<long>& ids, T& value)
{
    ArgList args;
    style.setupGetValueArgList(ids, -1, -1, args);
    return StyleValue::getFinalValue(&value, args);
}

template <typename T>
int writeFinal(const StyleValue& style, const std::vector<long>& ids, T value)
{
    ArgList args;
    style.setupSetValueArgList(ids, nullptr, -1, -1, Replace, args);
    return StyleValue::setFinalValue(value, args);
}

int readLow(const StyleValue& style, const std::vector<long>& ids, long& value)
{
    ArgList args;
    style.setupGetValueArgList(ids, -1, -1, args);
    args.appendArbParamPtr("IValue", &value);
    return StyleValue::styleGetLowLevel(args);
}

int writeLow(const StyleValue& style, const std::vector<long>& ids, long value)
{
    ArgList args;
    style.setupSetValueArgList(ids, nullptr, -1, -1, Replace, args);
    args.appendArbParam("IValue", value);
    args.appendDouble("DValue", static_cast<double>(value));
    return StyleValue::styleSetLowLevel(args);
}

/// Puts back what the tests write; the tree belongs to the whole process.
class AStyleValue : public ::testing::Test {
protected:
    void TearDown() override
    {
        EngineProbe::reset();
        writeLow(StyleValue("Paper"), idsOf("PaperSize"), 0);
        writeFinal(StyleValue("Paper"), idsOf("OrientPortrait"), true);
        writeFinal(StyleValue("Paper"), idsOf("PaperSizeInfo", "Custom2", "Width"), 10.0);
    }
};

} // namespace

TEST_F(AStyleValue, MacroIdentifiersAreClosedByMinusOne)
{
    const std::vector<long> ids = idsOf("PaperSizeInfo", "Custom2", "Width");
    ASSERT_EQ(4u, ids.size());
    EXPECT_EQ(-1, ids[3]);
    EXPECT_THAT(std::vector<long>(ids.begin(), ids.end() - 1), ::testing::Each(::testing::Gt(0)));
}

TEST_F(AStyleValue, MacroIdentifiersReplaceWhatTheListHeld)
{
    std::vector<long> ids{8, 9, -1};
    StyleValue::initMacroIDsfromStyleValueNames(ids, "Width");
    EXPECT_EQ(idsOf("Width"), ids);
}

TEST_F(AStyleValue, UpToSevenWordsBecomeMacroIdentifiers)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, "a", "b", "c", "d", "e", "f", "g");
    ASSERT_EQ(8u, ids.size());
    EXPECT_EQ(idsOf("g")[0], ids[6]);
}

TEST_F(AStyleValue, APathMayBeDividedAnywhereBetweenWordsAndIdentifiers)
{
    double a = 0;
    double b = 0;
    double c = 0;
    double d = 0;
    StringList words("GlobalPaper", "PaperSizeInfo");
    words.append("A4");
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue(words), idsOf("Width"), a));
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue("GlobalPaper"), idsOf("PaperSizeInfo", "A4", "Width"), b));
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue("GlobalPaper", "PaperSizeInfo", "A4", "Width"), {-1}, c));
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue("GlobalPaper", "PaperSizeInfo"), idsOf("A4", "Width"), d));
    EXPECT_THAT((std::vector<double>{a, b, c, d}), ::testing::Each(8.27));
}

TEST_F(AStyleValue, IdentifiersEndAtMinusOne)
{
    std::vector<long> ids = idsOf("OrientPortrait");
    ids.push_back(idsOf("Width")[0]);
    bool portrait = false;
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue("Paper"), ids, portrait));
    EXPECT_TRUE(portrait);
}

TEST_F(AStyleValue, WritesATruthValueThatIsReadBack)
{
    const StyleValue paper("Paper");
    bool portrait = true;
    EXPECT_EQ(StyleCode_Ok, writeFinal(paper, idsOf("OrientPortrait"), false));
    EXPECT_TRUE(StyleValue::returnCodeOk(readFinal(paper, idsOf("OrientPortrait"), portrait)));
    EXPECT_FALSE(portrait);
}

TEST_F(AStyleValue, ACustomPaperIsWrittenInOneBranchAndReadInTheOther)
{
    double width = 0;
    EXPECT_EQ(StyleCode_Ok, writeFinal(StyleValue("Paper"), idsOf("PaperSizeInfo", "Custom2", "Width"), 182 / 25.4));
    EXPECT_EQ(StyleCode_Ok, readFinal(StyleValue("GlobalPaper"), idsOf("PaperSizeInfo", "Custom2", "Width"), width));
    EXPECT_EQ(182 / 25.4, width);
}

TEST_F(AStyleValue, WritingWhatIsThereAnswersNotZero)
{
    const StyleValue paper("Paper");
    EXPECT_EQ(StyleCode_AlreadySet, writeFinal(paper, idsOf("OrientPortrait"), true));
    EXPECT_EQ(StyleCode_AlreadySet, writeFinal(paper, idsOf("PaperSizeInfo", "Custom2", "Width"), 10.0));
    EXPECT_EQ(StyleCode_AlreadySet, writeLow(paper, idsOf("PaperSize"), 0));
}

TEST_F(AStyleValue, AWholeNumberGoesInAndOutAtLowLevel)
{
    const StyleValue paper("Paper");
    long index = -1;
    EXPECT_EQ(StyleCode_Ok, writeLow(paper, idsOf("PaperSize"), 3));
    EXPECT_EQ(StyleCode_Ok, readLow(paper, idsOf("PaperSize"), index));
    EXPECT_EQ(3, index);
}

TEST_F(AStyleValue, ATruthValueIsAWholeNumberAtLowLevel)
{
    const StyleValue paper("Paper");
    long portrait = -1;
    EXPECT_EQ(StyleCode_Ok, readLow(paper, idsOf("OrientPortrait"), portrait));
    EXPECT_EQ(1, portrait);
    EXPECT_EQ(StyleCode_Ok, writeLow(paper, idsOf("OrientPortrait"), 0));
    EXPECT_EQ(StyleCode_Ok, readLow(paper, idsOf("OrientPortrait"), portrait));
    EXPECT_EQ(0, portrait);
}

TEST_F(AStyleValue, ADoubleGoesInAndOutAtLowLevelAsDValue)
{
    const StyleValue paper("Paper");
    ArgList set;
    paper.setupSetValueArgList(idsOf("PaperSizeInfo", "Custom2", "Width"), nullptr, -1, -1, Replace, set);
    set.appendDouble("DValue", 6.5);
    EXPECT_EQ(StyleCode_Ok, StyleValue::styleSetLowLevel(set));
    double width = 0;
    ArgList get;
    paper.setupGetValueArgList(idsOf("PaperSizeInfo", "Custom2", "Width"), -1, -1, get);
    get.appendDoublePtr("DValue", &width);
    EXPECT_EQ(StyleCode_Ok, StyleValue::styleGetLowLevel(get));
    EXPECT_EQ(6.5, width);
}

TEST_F(AStyleValue, ATextGoesInAtLowLevelAsSValue)
{
    const StyleValue paper("Paper");
    ArgList set;
    paper.setupSetValueArgList(idsOf("PaperSizeInfo", "Custom2", "Description"), nullptr, -1, -1, Replace, set);
    set.appendString("SValue", "Custom2");
    EXPECT_EQ(StyleCode_AlreadySet, StyleValue::styleSetLowLevel(set));
}

TEST_F(AStyleValue, AnUnknownPathAnswersSoAndLeavesTheValue)
{
    double width = 4.0;
    long whole = 7;
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue("Paper"), idsOf("Colour"), width));
    EXPECT_EQ(StyleCode_UnknownPath, readLow(StyleValue("Paper"), idsOf("Colour"), whole));
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue(), {-1}, width));
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue("Paper"), {1000000, -1}, width));
    EXPECT_EQ(StyleCode_UnknownPath, writeFinal(StyleValue("Paper"), idsOf("Colour"), 1.0));
    EXPECT_EQ(StyleCode_UnknownPath, writeLow(StyleValue("Paper"), idsOf("Colour"), 1));
    EXPECT_FALSE(StyleValue::returnCodeOk(StyleCode_UnknownPath));
    EXPECT_EQ(4.0, width);
    EXPECT_EQ(7, whole);
}

TEST_F(AStyleValue, APathWithAnEmptyWordAnywhereIsUnknown)
{
    bool upright = false;
    const std::vector<long> orientation = idsOf("OrientPortrait");
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue("", "Paper"), orientation, upright));
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue("Paper", ""), orientation, upright));
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue("Paper"), idsOf("OrientPortrait", ""), upright));
    EXPECT_EQ(StyleCode_UnknownPath, readFinal(StyleValue(""), idsOf("Paper", "OrientPortrait"), upright));
    EXPECT_FALSE(upright);
}

TEST_F(AStyleValue, AnotherTypeAnswersSoAndLeavesTheValue)
{
    double width = 4.0;
    bool truth = true;
    EXPECT_EQ(StyleCode_WrongType, readFinal(StyleValue("Paper"), idsOf("OrientPortrait"), width));
    EXPECT_EQ(StyleCode_WrongType, readFinal(StyleValue("Paper"), idsOf("PaperSize"), truth));
    EXPECT_EQ(StyleCode_WrongType, writeFinal(StyleValue("Paper"), idsOf("PaperSize"), 1.0));
    EXPECT_EQ(4.0, width);
    EXPECT_TRUE(truth);
}

TEST_F(AStyleValue, ALowLevelListWithoutTheValueAnswersSo)
{
    const StyleValue paper("Paper");
    ArgList args;
    double wrong = 1;
    paper.setupGetValueArgList(idsOf("PaperSize"), -1, -1, args);
    EXPECT_EQ(StyleCode_MissingValue, StyleValue::styleGetLowLevel(args));
    args.appendDoublePtr("DValue", &wrong);
    EXPECT_EQ(StyleCode_MissingValue, StyleValue::styleGetLowLevel(args));
    paper.setupSetValueArgList(idsOf("PaperSize"), nullptr, -1, -1, Replace, args);
    args.appendDouble("DValue", 2);
    EXPECT_EQ(StyleCode_MissingValue, StyleValue::styleSetLowLevel(args));
    EXPECT_EQ(1.0, wrong);
}

TEST_F(AStyleValue, OffsetsSetsAndOtherAssignmentsAreNotSupported)
{
    const StyleValue paper("Paper");
    const int set = 0;
    bool portrait = false;
    ArgList args;
    paper.setupGetValueArgList(idsOf("OrientPortrait"), 0, -1, args);
    EXPECT_EQ(StyleCode_NotSupported, StyleValue::getFinalValue(&portrait, args));
    paper.setupGetValueArgList(idsOf("OrientPortrait"), -1, 2, args);
    EXPECT_EQ(StyleCode_NotSupported, StyleValue::getFinalValue(&portrait, args));
    paper.setupSetValueArgList(idsOf("OrientPortrait"), &set, -1, -1, Replace, args);
    EXPECT_EQ(StyleCode_NotSupported, StyleValue::setFinalValue(false, args));
    paper.setupSetValueArgList(idsOf("OrientPortrait"), nullptr, -1, -1, 0, args);
    EXPECT_EQ(StyleCode_NotSupported, StyleValue::setFinalValue(false, args));
    EXPECT_FALSE(portrait);
}

TEST_F(AStyleValue, AListMayServeOneCallAfterAnother)
{
    const StyleValue paper("Paper");
    ArgList args;
    long index = -1;
    bool portrait = false;
    double width = 0;
    paper.setupGetValueArgList(idsOf("PaperSizeInfo", "Custom2", "Width"), -1, -1, args);
    EXPECT_EQ(StyleCode_Ok, StyleValue::getFinalValue(&width, args));
    EXPECT_EQ(10.0, width);
    paper.setupSetValueArgList(idsOf("PaperSize"), nullptr, -1, -1, Replace, args);
    args.appendArbParam("IValue", 4);
    EXPECT_EQ(StyleCode_Ok, StyleValue::styleSetLowLevel(args));
    paper.setupGetValueArgList(idsOf("PaperSize"), -1, -1, args);
    args.appendArbParamPtr("IValue", &index);
    EXPECT_EQ(StyleCode_Ok, StyleValue::styleGetLowLevel(args));
    EXPECT_EQ(4, index);
    paper.setupGetValueArgList(idsOf("OrientPortrait"), -1, -1, args);
    EXPECT_EQ(StyleCode_Ok, StyleValue::getFinalValue(&portrait, args));
    EXPECT_TRUE(portrait);
}

TEST_F(AStyleValue, AListSaysEverythingTheEngineIsTold)
{
    ArgList args;
    StyleValue("Paper").setupSetValueArgList(idsOf("PaperSize"), nullptr, -1, -1, Replace, args);
    args.appendArbParam("IValue", 5);
    args.appendDouble("DValue", 5.0);
    std::vector<std::string> names;
    for (int i = 0; i < VelArgListCount(args.getRef()); ++i)
        names.emplace_back(VelArgListNameAt(args.getRef(), i));
    EXPECT_THAT(names, ElementsAre("Word1", "MacroID1", "Offset1", "Offset2", "Set", "AssignOp", "IValue", "DValue"));
}

TEST_F(AStyleValue, CallsAreLoggedOnRequest)
{
    const StyleValue paper("Paper");
    long index = 0;
    bool portrait = false;
    readLow(paper, idsOf("PaperSize"), index);
    EngineProbe::startLog();
    writeLow(paper, idsOf("PaperSize"), 5);
    writeFinal(paper, idsOf("OrientPortrait"), false);
    writeFinal(paper, idsOf("PaperSizeInfo", "Custom2", "Width"), 7.25);
    readFinal(paper, idsOf("OrientPortrait"), portrait);
    readLow(paper, idsOf("PaperSize"), index);
    EXPECT_THAT(EngineProbe::log(),
                ElementsAre("styleSet Paper/PaperSize IValue=5 DValue=5", "styleSet Paper/OrientPortrait IValue=0",
                            "styleSet Paper/PaperSizeInfo/Custom2/Width DValue=7.25", "styleGet Paper/OrientPortrait",
                            "styleGet Paper/PaperSize"));
}

TEST_F(AStyleValue, ARefusedWriteAnswersTheCodeAndChangesNothing)
{
    const StyleValue paper("Paper");
    long index = -1;
    EngineProbe::refuseStyleWrites("Paper/PaperSize", 99);
    EXPECT_EQ(99, writeLow(paper, idsOf("PaperSize"), 5));
    EngineProbe::refuseStyleWrites("Paper/OrientPortrait", 98);
    EXPECT_EQ(98, writeFinal(paper, idsOf("OrientPortrait"), false));
    readLow(paper, idsOf("PaperSize"), index);
    EXPECT_EQ(0, index);
    EngineProbe::refuseStyleWrites("Paper/PaperSize", 0);
    EXPECT_EQ(StyleCode_Ok, writeLow(paper, idsOf("PaperSize"), 5));
}

TEST_F(AStyleValue, AProvokedReadFailureLeavesTheValue)
{
    const StyleValue paper("Paper");
    long index = -3;
    EngineProbe::failStyleReads("Paper/PaperSize");
    const int code = readLow(paper, idsOf("PaperSize"), index);
    EXPECT_EQ(StyleCode_ReadFailed, code);
    EXPECT_FALSE(StyleValue::returnCodeOk(code));
    EXPECT_EQ(-3, index);
}

TEST_F(AStyleValue, AProvokedFailureOfTheListPassesThrough)
{
    ArgList args;
    EngineProbe::throwAt("ArgList");
    EXPECT_THROW(StyleValue("Paper").setupGetValueArgList(idsOf("PaperSize"), -1, -1, args), velmora::ExceptionBase);
    EngineProbe::throwAt("StyleValue");
    EXPECT_THROW(StyleValue("Paper"), velmora::ExceptionBase);
}
