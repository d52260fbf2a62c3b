// The columns of the active page, and reading a file again.

#include "engine/VelUtil.h"
#include "tests/platform/page/EngineFixture.h"

#include <gmock/gmock.h>

namespace velmora::test {
namespace {

using ::testing::HasSubstr;

class Columns : public EngineFixture {
protected:
    std::string details() { return VelUtilColumnDetails(); }
};

TEST_F(Columns, EachIsToldWithItsUnitItsLineAndItsLook)
{
    EXPECT_EQ(details(), "");
    load(write("units.csv", "t,speed,depth\ns,m/s,m\n1,4,9\n2,6,3\n3,5,7\n"));
    EXPECT_EQ(details(), "t\ts\t0\t\t\nspeed\tm/s\t1\t#005c9e\t\ndepth\tm\t2\t#c84e16\t");
    EXPECT_EQ(VelUtilColumnSetHorizontal(3), 1) << VelUtilLastErrorMessage();
    EXPECT_EQ(details(), "t\ts\t1\t#c84e16\tpoints\nspeed\tm/s\t2\t#005c9e\tpoints\ndepth\tm\t0\t\t");
    EXPECT_EQ(VelUtilColumnSetHorizontal(0), 1);
    EXPECT_THAT(details(), HasSubstr("depth\tm\t3\t#c84e16\t"));
    load(gridFile());
    EXPECT_EQ(details(), "");
}

TEST_F(Columns, TheDashesOfALineBeyondTheColoursAreTold)
{
    load(write("many.csv", "x,a,b,c,d,e,f,g,h\n1,1,2,3,4,5,6,7,8\n2,1,2,3,4,5,6,7,8\n"));
    EXPECT_THAT(details(), HasSubstr("h\t\t8\t#005c9e\t6 4 "));
}

TEST_F(Columns, OneThatIsNotThereIsRefusedWithARemedy)
{
    load(tableFile());
    EXPECT_EQ(VelUtilColumnSetHorizontal(4), 0);
    EXPECT_STREQ(VelUtilLastErrorMessage(),
                 "There is no column 4: the page has 3. Count them from 1; 0 stands for the row numbers.");
    EXPECT_EQ(VelUtilColumnSetHorizontal(-1), 0);
    load(gridFile());
    EXPECT_EQ(VelUtilColumnSetHorizontal(1), 0);
}

TEST_F(Columns, AllAreHiddenAndShownAtOnce)
{
    load(tableFile());
    VelUtilLineShowAll(0);
    EXPECT_EQ(VelUtilLineIsShown(1) + VelUtilLineIsShown(2), 0);
    VelUtilLineShowAll(1);
    EXPECT_EQ(VelUtilLineIsShown(1) + VelUtilLineIsShown(2), 2);
}

TEST_F(Columns, AnInterruptedArrangementKeepsTheAxis)
{
    load(tableFile());
    const std::string before = details();
    slowDown();
    inTurn = [] { return 1; };
    EXPECT_EQ(VelUtilColumnSetHorizontal(2), 0);
    EXPECT_EQ(VelUtilWasInterrupted(), 1);
    EXPECT_EQ(details(), before);
}

TEST_F(Columns, AReloadKeepsAxisAndHiddenLinesAndALoadDoesNot)
{
    const std::string file = tableFile();
    load(file);
    VelUtilColumnSetHorizontal(2);
    VelUtilLineShow(2, 0);
    const std::string chosen = details();
    EXPECT_EQ(VelUtilDataReload(file.c_str()), 1) << VelUtilLastErrorMessage();
    EXPECT_EQ(details(), chosen);
    EXPECT_EQ(VelUtilLineIsShown(2), 0);
    EXPECT_EQ(VelUtilDataReload((file + ".gone").c_str()), 0);
    EXPECT_EQ(details(), chosen);
    load(file);
    EXPECT_NE(details(), chosen);
}

} // namespace
} // namespace velmora::test
