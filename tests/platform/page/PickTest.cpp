#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/api/VelArgList.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

using ::testing::ElementsAre;
using testing::EngineProbe;

struct Deleter {
    void operator()(VelArgList* list) const { VelArgListDestroy(list); }
};
using Arguments = std::unique_ptr<VelArgList, Deleter>;

class Pick : public EngineFixture {
protected:
    Pick()
    {
        load(tableFile());
        show(area);
        VelUtilWorkFinish();
    }

    static Arguments rectangle(double x1, double x2, double y1, double y2)
    {
        Arguments list(VelArgListCreate());
        VelArgListAppendDouble(list.get(), "X1", x1);
        VelArgListAppendDouble(list.get(), "X2", x2);
        VelArgListAppendDouble(list.get(), "Y1", y1);
        VelArgListAppendDouble(list.get(), "Y2", y2);
        return list;
    }
    static void addKinds(VelArgList* list, int zones, int geometries, int text)
    {
        VelArgListAppendInt(list, "SelectZones", zones);
        VelArgListAppendInt(list, "SelectGeoms", geometries);
        VelArgListAppendInt(list, "SelectText", text);
        VelArgListAppendInt(list, "ConsiderStyle", 1);
    }
    static int pick(double x1, double x2, double y1, double y2, int zones = 1, int geometries = 1, int text = 1)
    {
        const Arguments list = rectangle(x1, x2, y1, y2);
        addKinds(list.get(), zones, geometries, text);
        return VelUtilPickAddAllInRectX(list.get());
    }

    FakeArea area{300, 220};
};

TEST_F(Pick, TheWholePaperHoldsBothLinesAndMore)
{
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_EQ(pick(0, 8.5, 0, 11), 1);
    EXPECT_GE(VelUtilPickGetCount(), 2);
}

TEST_F(Pick, TheCornersMayComeInAnyOrder)
{
    EXPECT_EQ(pick(8.5, 0, 11, 0), 1);
    EXPECT_GE(VelUtilPickGetCount(), 2);
}

TEST_F(Pick, ARectangleBesideTheFrameHoldsNothingAndIsNoFailure)
{
    EXPECT_EQ(pick(20, 30, 20, 30), 1);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_EQ(VelUtilPageIsComplete(), 1) << "nothing has to be drawn for that";
}

TEST_F(Pick, OnlyTheKindsThatAreAskedForCount)
{
    EXPECT_EQ(pick(0, 8.5, 0, 11, 0, 0, 0), 1);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    pick(0, 8.5, 0, 11, 1, 0, 0);
    EXPECT_EQ(VelUtilPickGetCount(), 2) << "the two lines";
}

TEST_F(Pick, TheSelectionShowsAndDeselectingTakesItAway)
{
    const std::vector<unsigned char> before = area.surface.bytes();
    pick(0, 8.5, 0, 11);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    VelUtilWorkFinish();
    EXPECT_NE(area.surface.bytes(), before);
    VelUtilPickDeselectAll();
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    VelUtilWorkFinish();
    EXPECT_EQ(area.surface.bytes(), before);
}

TEST_F(Pick, NextGoesThroughAllThatShowsOneByOneAndBeginsAgain)
{
    pick(0, 8.5, 0, 11);
    const int all = VelUtilPickGetCount();
    VelUtilPickDeselectAll();
    std::vector<std::string> names;
    for (int i = 0; i < all; ++i) {
        EXPECT_EQ(VelUtilPickNext(), 1);
        EXPECT_EQ(VelUtilPickGetCount(), 1);
        names.emplace_back(VelUtilPickDescription());
    }
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(names[0].substr(0, 5), "line ");
    EXPECT_EQ(VelUtilPickNext(), 1);
    EXPECT_EQ(VelUtilPickDescription(), names.front());
    for (int i = all - 1; i >= 0; --i) {
        EXPECT_EQ(VelUtilPickPrevious(), 1);
        EXPECT_EQ(VelUtilPickDescription(), names[static_cast<std::size_t>(i)]);
    }
}

TEST_F(Pick, NextAndPreviousGoOnFromWhatIsSelectedAndLeaveOutWhatIsHidden)
{
    pick(0, 8.5, 0, 11, 1, 0, 0);
    ASSERT_EQ(VelUtilPickGetCount(), 2);
    VelUtilPickNext();
    EXPECT_STREQ(VelUtilPickDescription(), "horizontal axis");
    VelUtilPickDeselectAll();
    VelUtilPickPrevious();
    EXPECT_EQ(std::string(VelUtilPickDescription()).substr(0, 13), "legend entry ");
    VelUtilPickNext();
    const std::string first = VelUtilPickDescription();
    VelUtilLineShow(1, 0);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    VelUtilPickNext();
    const std::string second = VelUtilPickDescription();
    EXPECT_EQ(second.substr(0, 5), "line ");
    EXPECT_NE(second, first);
    VelUtilPickNext();
    EXPECT_STREQ(VelUtilPickDescription(), "horizontal axis");
}

TEST_F(Pick, NextShowsAndAnEmptyPageHasNone)
{
    const std::vector<unsigned char> before = area.surface.bytes();
    VelUtilPickNext();
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    VelUtilWorkFinish();
    EXPECT_NE(area.surface.bytes(), before);
    VelEngStop();
    EXPECT_EQ(VelUtilPickNext(), 0) << "without an engine";
    VelEngStart("", "test");
    EXPECT_EQ(VelUtilPickNext() + VelUtilPickPrevious(), 0);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
}

TEST_F(Pick, AMissingCornerIsReportedByItsName)
{
    const Arguments list(VelArgListCreate());
    VelArgListAppendDouble(list.get(), "X1", 0);
    VelArgListAppendDouble(list.get(), "Y1", 0);
    VelArgListAppendDouble(list.get(), "Y2", 11);
    EXPECT_EQ(VelUtilPickAddAllInRectX(list.get()), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("\"X2\""), std::string::npos);
    EXPECT_EQ(VelUtilPickAddAllInRectX(nullptr), 0);
}

TEST_F(Pick, TheLogNamesTheArgumentsInTheirOrder)
{
    EngineProbe::startLog();
    VelUtilPickDeselectAll();
    VelUtilLastErrorMessageClear();
    pick(1.5, 2, 3, 4);
    EXPECT_FALSE(VelUtilDialogLastMessageBox());
    EXPECT_THAT(EngineProbe::log(), ElementsAre("VelUtilPickDeselectAll", "VelUtilLastErrorMessageClear",
                                                "VelUtilPickAddAllInRectX X1=1.5 X2=2 Y1=3 Y2=4 SelectZones=1 "
                                                "SelectGeoms=1 SelectText=1 ConsiderStyle=1",
                                                "VelUtilDialogLastMessageBox"));
}

} // namespace
} // namespace velmora::test
