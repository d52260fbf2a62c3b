#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"

namespace velmora::test {
namespace {

class Load : public EngineFixture {};

TEST_F(Load, TheDescriptionTellsWhatThePageShows)
{
    EXPECT_STREQ(VelUtilDataDescription(), "");
    load(gridFile());
    EXPECT_NE(std::string(VelUtilDataDescription()).find("120 x 120"), std::string::npos) << VelUtilDataDescription();
}

TEST_F(Load, OnlyASurfaceCanBeTurned)
{
    EXPECT_EQ(VelUtilViewCanRotate(), 0);
    load(gridFile());
    EXPECT_EQ(VelUtilViewCanRotate(), 1);
    load(tableFile());
    EXPECT_EQ(VelUtilViewCanRotate(), 0);
}

TEST_F(Load, AFailureKeepsWhatThePageShowed)
{
    FakeArea area(160, 120);
    load(tableFile());
    show(area);
    VelUtilWorkFinish();
    const std::string description = VelUtilDataDescription();
    EXPECT_EQ(VelUtilDataLoad(write("broken.asc", "ncols 3\nnrows x\n").c_str()), 0);
    EXPECT_STRNE(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(description, VelUtilDataDescription());
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(Load, ANewLoadTakesThePlaceOfTheOneBefore)
{
    FakeArea area(160, 120);
    load(tableFile());
    show(area);
    VelUtilWorkFinish();
    const std::vector<unsigned char> before = area.surface.bytes();
    load(gridFile());
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    VelUtilWorkFinish();
    EXPECT_NE(area.surface.bytes(), before);
}

TEST_F(Load, ALoadInsideALoadIsRefusedAndTheFirstOneGoesOn)
{
    const std::string first = gridFile();
    const std::string second = tableFile();
    slowDown();
    std::string refusal;
    inTurn = [&] {
        EXPECT_EQ(VelUtilDataLoad(second.c_str()), 0);
        refusal = VelUtilLastErrorMessage();
        return 0;
    };
    EXPECT_EQ(VelUtilDataLoad(first.c_str()), 1);
    ASSERT_GT(turns, 0) << "reading gives turns";
    EXPECT_NE(refusal.find("another file is being read"), std::string::npos) << refusal;
    EXPECT_NE(std::string(VelUtilDataDescription()).find("120 x 120"), std::string::npos);
    EXPECT_EQ(notBusyCalls, 1);
}

TEST_F(Load, AnInterruptedLoadKeepsWhatThePageShowed)
{
    load(tableFile());
    const std::string description = VelUtilDataDescription();
    const std::string grid = gridFile();
    slowDown();
    inTurn = [] { return 1; };
    EXPECT_EQ(VelUtilDataLoad(grid.c_str()), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("interrupted"), std::string::npos);
    EXPECT_EQ(description, VelUtilDataDescription());
}

TEST_F(Load, StoppingTheEngineInMidReadingIsSafe)
{
    const std::string grid = gridFile();
    slowDown();
    inTurn = [] {
        VelEngStop();
        return 0;
    };
    EXPECT_EQ(VelUtilDataLoad(grid.c_str()), 0);
    EXPECT_EQ(VelEngIsRunning(), 0);
    EXPECT_EQ(VelUtilIsBusy(), 0);
}

TEST_F(Load, NoNameIsAnError)
{
    EXPECT_EQ(VelUtilDataLoad(nullptr), 0);
    EXPECT_EQ(VelUtilDataLoad(""), 0);
    EXPECT_STRNE(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(notBusyCalls, 0) << "that is no work";
}

TEST_F(Load, TheNotesAreThoseOfTheLastSuccessfulLoad)
{
    load(write("mixed.csv", "x,a,weather\n1,2,sun\n2,3,rain\n3,4,sun\n"));
    const std::string notes = VelUtilLastLoadNotes();
    EXPECT_NE(notes.find("weather"), std::string::npos) << notes;
    EXPECT_EQ(VelUtilDataLoad("/nowhere.csv"), 0);
    EXPECT_EQ(notes, VelUtilLastLoadNotes());
    load(gridFile());
    EXPECT_EQ(std::string(VelUtilLastLoadNotes()).find("weather"), std::string::npos);
}

TEST_F(Load, TheNotesAndTheDetailsBelongToThePage)
{
    EXPECT_STREQ(VelUtilDataNotes(), "");
    EXPECT_STREQ(VelUtilDataDetails(), "");
    load(write("mixed.csv",
               "date,speed,\"sky\nseen\"\n,m/s,\n2024-01-05,1.5,sun\n2024-01-06,wet,fog\n2024-01-07,-2,sun\n"));
    EXPECT_STREQ(VelUtilDataNotes(), "The column \"speed\": 'wet' in line 5 is no number and shows as a gap.\n"
                                     "The column \"sky seen\" holds text and is left out.");
    EXPECT_STREQ(VelUtilDataDetails(), "Column\tUnit\tKind\tValues\tGaps\tSmallest\tLargest\tLeft out because\n"
                                       "date\t\tdates\t3\t0\t2024-01-05\t2024-01-07\t\n"
                                       "speed\tm/s\tnumbers\t2\t1\t-2\t1.5\t\n"
                                       "sky seen\t\ttext\t0\t3\t\t\tit holds text");
    EXPECT_EQ(VelUtilDataLoad("/nowhere.csv"), 0);
    EXPECT_NE(std::string(VelUtilDataNotes()), "");
    load(write("small.asc", "ncols 2 nrows 1 xllcorner 10 yllcorner 0 cellsize 0.5 NODATA_value -1 4.5 -1\n"));
    EXPECT_STREQ(VelUtilDataNotes(), "");
    EXPECT_STREQ(VelUtilDataDetails(), "Rows\t1\nColumns\t2\nExtent in x\t10 to 11\nExtent in y\t0 to 0.5\n"
                                       "Spacing\t0.5\nSmallest\t4.5\nLargest\t4.5\nGaps\t1");
}

} // namespace
} // namespace velmora::test
