#include "engine/api/VelArgList.h"

#include "engine/api/VelStyle.h"
#include "engine/style/StyleCodes.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

using velmora::testing::EngineProbe;

namespace {

struct DestroyList {
    void operator()(VelArgList* list) const { VelArgListDestroy(list); }
};

class ArgumentList : public ::testing::Test {
protected:
    void TearDown() override { EngineProbe::reset(); }

    const std::unique_ptr<VelArgList, DestroyList> m_owned{VelArgListCreate()};
    VelArgList* const m_list = m_owned.get();
};

} // namespace

TEST_F(ArgumentList, KeepsTheOrderOfAppending)
{
    VelArgListAppendDouble(m_list, "X1", 1);
    VelArgListAppendInt(m_list, "SelectZones", 1);
    VelArgListAppendString(m_list, "Title", "a");
    VelArgListAppendDouble(m_list, "X2", 2);
    ASSERT_EQ(4, VelArgListCount(m_list));
    EXPECT_STREQ("X1", VelArgListNameAt(m_list, 0));
    EXPECT_STREQ("SelectZones", VelArgListNameAt(m_list, 1));
    EXPECT_STREQ("Title", VelArgListNameAt(m_list, 2));
    EXPECT_STREQ("X2", VelArgListNameAt(m_list, 3));
    EXPECT_EQ(nullptr, VelArgListNameAt(m_list, 4));
    EXPECT_EQ(nullptr, VelArgListNameAt(m_list, -1));
}

TEST_F(ArgumentList, GivesEachValueBackByName)
{
    long target = 0;
    double realTarget = 0;
    VelArgListAppendInt(m_list, "Int", -7);
    VelArgListAppendArbParam(m_list, "Word", 0x1234567890L);
    VelArgListAppendDouble(m_list, "Double", 2.5);
    VelArgListAppendString(m_list, "Text", "größer");
    VelArgListAppendArbParamPtr(m_list, "WordPtr", &target);
    VelArgListAppendDoublePtr(m_list, "DoublePtr", &realTarget);

    long whole = 0;
    double real = 0;
    const char* text = nullptr;
    long* wordPointer = nullptr;
    double* doublePointer = nullptr;
    EXPECT_TRUE(VelArgListGetLong(m_list, "Int", &whole));
    EXPECT_EQ(-7, whole);
    EXPECT_TRUE(VelArgListGetLong(m_list, "Word", &whole));
    EXPECT_EQ(0x1234567890L, whole);
    EXPECT_TRUE(VelArgListGetDouble(m_list, "Double", &real));
    EXPECT_EQ(2.5, real);
    EXPECT_TRUE(VelArgListGetString(m_list, "Text", &text));
    EXPECT_STREQ("größer", text);
    EXPECT_TRUE(VelArgListGetArbParamPtr(m_list, "WordPtr", &wordPointer));
    EXPECT_EQ(&target, wordPointer);
    EXPECT_TRUE(VelArgListGetDoublePtr(m_list, "DoublePtr", &doublePointer));
    EXPECT_EQ(&realTarget, doublePointer);
}

TEST_F(ArgumentList, ConvertsAWholeNumberToADoubleAndNothingElse)
{
    VelArgListAppendInt(m_list, "Int", 3);
    VelArgListAppendDouble(m_list, "Double", 2.5);
    double real = 0;
    long whole = 11;
    const char* text = nullptr;
    EXPECT_TRUE(VelArgListGetDouble(m_list, "Int", &real));
    EXPECT_EQ(3.0, real);
    EXPECT_FALSE(VelArgListGetLong(m_list, "Double", &whole));
    EXPECT_FALSE(VelArgListGetString(m_list, "Int", &text));
    EXPECT_FALSE(VelArgListGetLong(m_list, "Missing", &whole));
    EXPECT_EQ(11, whole);
}

TEST_F(ArgumentList, TheLastValueOfANameCounts)
{
    VelArgListAppendInt(m_list, "N", 1);
    VelArgListAppendInt(m_list, "N", 2);
    long whole = 0;
    EXPECT_TRUE(VelArgListGetLong(m_list, "N", &whole));
    EXPECT_EQ(2, whole);
    EXPECT_EQ(2, VelArgListCount(m_list));
}

TEST_F(ArgumentList, CopiesNamesAndTexts)
{
    std::string name = "Name";
    std::string value = "value";
    VelArgListAppendString(m_list, name.c_str(), value.c_str());
    name = "xxxx";
    value = "yyyyy";
    const char* text = nullptr;
    ASSERT_TRUE(VelArgListGetString(m_list, "Name", &text));
    EXPECT_STREQ("value", text);
}

TEST_F(ArgumentList, ANullTextIsEmpty)
{
    VelArgListAppendString(m_list, "Text", nullptr);
    const char* text = nullptr;
    ASSERT_TRUE(VelArgListGetString(m_list, "Text", &text));
    EXPECT_STREQ("", text);
}

TEST_F(ArgumentList, ClearingEmptiesIt)
{
    VelArgListAppendInt(m_list, "N", 1);
    VelArgListClear(m_list);
    EXPECT_EQ(0, VelArgListCount(m_list));
}

TEST_F(ArgumentList, AProvokedFailureAppendsNothing)
{
    EngineProbe::throwAt("ArgList", 1);
    EXPECT_THROW(VelArgListAppendInt(m_list, "N", 1), velmora::ExceptionBase);
    EXPECT_EQ(0, VelArgListCount(m_list));
    VelArgListAppendInt(m_list, "N", 1);
    EXPECT_EQ(1, VelArgListCount(m_list));
}

TEST(ArgumentListMissing, EveryReadAndWriteSaysSoAndTouchesNothing)
{
    using velmora::engine::style::StyleCode_NoArgumentList;
    bool truth = true;
    double real = 2.5;
    EngineProbe::startLog();
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleGetBool(nullptr, &truth));
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleGetDouble(nullptr, &real));
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleSetBool(nullptr, false));
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleSetDouble(nullptr, 1));
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleGetLowLevel(nullptr));
    EXPECT_EQ(StyleCode_NoArgumentList, VelStyleSetLowLevel(nullptr));
    EXPECT_TRUE(truth);
    EXPECT_EQ(2.5, real);
    EXPECT_TRUE(EngineProbe::log().empty());
    EngineProbe::reset();
}

TEST(ArgumentListLife, DestroyingNullIsHarmless)
{
    VelArgListDestroy(nullptr);
}
