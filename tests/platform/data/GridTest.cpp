#include "tests/platform/data/ReadSupport.h"

#include <gmock/gmock.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string corner = "xllcorner 100\nyllcorner 200\ncellsize 10\n";
const std::string twoByTwo = "ncols 2\nnrows 2\n" + corner;

} // namespace

TEST(Grid, ValuesComeRowByRowFromTheNorth)
{
    const Grid grid = readGrid("ncols 3\nnrows 2\n" + corner + "NODATA_value -1\n1 2 3\n4 -1 6.5\n");
    EXPECT_EQ(grid.name, "sample.txt");
    EXPECT_EQ(grid.columns, 3);
    EXPECT_EQ(grid.rows, 2);
    EXPECT_TRUE(sameValues(grid.values, {1, 2, 3, 4, static_cast<float>(Gap), 6.5F}));
    EXPECT_EQ(grid.at(2, 0), 3);
    EXPECT_EQ(grid.at(0, 1), 4);
    EXPECT_EQ(grid.minimum, 1);
    EXPECT_EQ(grid.maximum, 6.5F);
    EXPECT_EQ(grid.gaps, 1u);
    EXPECT_TRUE(grid.notes.empty());
}

TEST(Grid, TheCornerIsHalfACellFromTheCentre)
{
    const Grid cornered = readGrid(twoByTwo + "1 2 3 4");
    EXPECT_EQ(cornered.xCenter, 105);
    EXPECT_EQ(cornered.yCenter, 205);
    const Grid centered = readGrid("ncols 2 nrows 2 xllcenter 100 yllcenter 200 cellsize 10 1 2 3 4");
    EXPECT_EQ(centered.xCenter, 100);
    EXPECT_EQ(centered.yCenter, 200);
    const Grid mixed = readGrid("ncols 2 nrows 2 xllcorner 100 yllcenter 200 cellsize 10 1 2 3 4");
    EXPECT_EQ(mixed.xCenter, 105);
    EXPECT_EQ(mixed.yCenter, 200);
}

class GridLayout : public testing::TestWithParam<std::string> {};

TEST_P(GridLayout, CaseOrderAndLineEndsDoNotMatter)
{
    const Grid grid = readGrid(GetParam());
    EXPECT_EQ(grid.columns, 2);
    EXPECT_EQ(grid.rows, 2);
    EXPECT_EQ(grid.cellSize, 0.5);
    EXPECT_EQ(grid.xCenter, -10.25);
    EXPECT_EQ(grid.yCenter, 40.25);
    EXPECT_TRUE(sameValues(grid.values, {1.5F, static_cast<float>(Gap), -3, 400}));
}

INSTANTIATE_TEST_SUITE_P(
    Grid, GridLayout,
    testing::Values(
        "ncols 2\nnrows 2\nxllcorner -10.5\nyllcorner 40\ncellsize 0.5\nNODATA_value -9\n1.5 -9\n-3 400\n",
        "NCOLS 2\nNROWS 2\nXLLCORNER -10.5\nYLLCORNER 40\nCELLSIZE .5\nNODATA_VALUE -9\n1.5 -9\n-3 400",
        "nodata_value -9.0\nCellSize 5e-1\nyllCenter 40.25\nxllCenter -10.25\nnRows 2\nnCols +2\n"
        "1.5 -9.00\n-3 4E2",
        "ncols 2\r\nnrows 2\r\nxllcorner -10.5\r\nyllcorner 40\r\ncellsize 0.5\r\nNODATA_value -9\r\n"
        "1.5 -9\r\n-3 400\r\n",
        "\xEF\xBB\xBFncols 2 nrows 2 xllcorner -10.5 yllcorner 40 cellsize 0.5 NODATA_value -9 1.5\n\n\n"
        "-9\t-3   400   \n\n",
        "  ncols\t2\n  nrows\t2\nxllcorner -10.5\nyllcorner 40\ncellsize 0.5\nNODATA_value -9\n1.5\n-9\n-3\n"
        "+400.0",
        "ncols\n2\nnrows\n2\nxllcorner\n-10.5\nyllcorner 40\ncellsize 0.5\nNODATA_value -9 1.5 -9 -3 400",
        "ncols 2\rnrows 2\rxllcorner -10.5\ryllcorner 40\rcellsize 0.5\rNODATA_value -9\r1.5 -9\r-3 400"));

TEST(Grid, WithoutANamedGapValueItIsTheConventionalOne)
{
    const Grid grid = readGrid(twoByTwo + "1 -9999 -9999.0 4");
    EXPECT_EQ(grid.gaps, 2u);
    EXPECT_THAT(grid.notes, ElementsAre(HasSubstr("-9999 is taken as a gap")));
    EXPECT_TRUE(readGrid(twoByTwo + "1 2 3 4").notes.empty());
    EXPECT_EQ(readGrid(twoByTwo + "NODATA_value 0\n1 -9999 0 4").gaps, 1u);
}

TEST(Grid, AGapValueBeyondAFloatIsFound)
{
    EXPECT_EQ(readGrid(twoByTwo + "NODATA_value -1.7976931348623157e+308\n1 -1.7976931348623157E308 3 4").gaps, 1u);
    EXPECT_EQ(readGrid(twoByTwo + "NODATA_value -3.4028234663852886e+38\n1 -3.402823466e+38 3 4").gaps, 1u);
    EXPECT_EQ(readGrid(twoByTwo + "NODATA_value -3.4028235e+38\n1 -3.4028235e+38 3 4").gaps, 1u);
}

TEST(Grid, ValuesTooSmallForAFloatAreZero)
{
    EXPECT_THAT(readGrid(twoByTwo + "1e-300 -0.0000000000000000000000000000000000000000000000000000001 3 4").values,
                ElementsAre(0, 0, 3, 4));
}

TEST(Grid, MarksOfGapsAreGapsWithoutANote)
{
    for (const char* mark : {"nan", "NaN", "-inf", "NA", "--", "*", "null"}) {
        const Grid grid = readGrid(twoByTwo + mark + std::string(" 2 3 4"));
        EXPECT_EQ(grid.gaps, 1u) << mark;
        EXPECT_TRUE(grid.notes.empty()) << mark;
    }
    EXPECT_EQ(readGrid(twoByTwo + "NODATA_value nan\n1 nan\n3 -9999\n").gaps, 1u);
}

TEST(Grid, OddWordsAreGapsWithANote)
{
    const Grid grid = readGrid(twoByTwo + "1 2\n3 x4\n");
    EXPECT_EQ(grid.gaps, 1u);
    EXPECT_THAT(grid.notes, ElementsAre("'x4' in line 7 is no number and shows as a gap."));
    EXPECT_THAT(readGrid(twoByTwo + "1 1e39\n3 1e999\n").notes,
                ElementsAre("2 values, the first '1e39' in line 6, are too large for a value of the grid and show as "
                            "gaps."));
}

TEST(Grid, WordsAcrossTheBordersOfBlocksStayWhole)
{
    constexpr int Size = 150;
    std::string text = "ncols 150\nnrows 150\n" + corner;
    std::vector<float> values;
    for (int i = 0; i < Size * Size; ++i) {
        values.push_back(static_cast<float>(i) + 0.25F);
        text += std::to_string(i) + ".25" + std::string(static_cast<std::size_t>(1 + i % 3), i % 7 == 0 ? '\n' : ' ');
    }
    EXPECT_EQ(readGrid(text).values, values);
}

TEST(Grid, BlanksLongerThanABlockAreSkipped)
{
    EXPECT_THAT(readGrid(twoByTwo + "1 2" + std::string(50000, ' ') + "3 4" + std::string(50000, '\n')).values,
                ElementsAre(1, 2, 3, 4));
}

class MalformedGrid : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedGrid, IsRefusedWithPlaceAndRemedy)
{
    expectRefused(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Grid, MalformedGrid,
    testing::Values(
        Malformed{"OnlyAKeyword", "ncols ", {"line 1: the file ends before the value of ncols", "cut short"}},
        Malformed{"NoNumbers", twoByTwo, {"ncols 2 x nrows 2 = 4 numbers", "cut short"}},
        Malformed{"TooFew",
                  twoByTwo + "1000 2000\n3000\n",
                  {"line 8: the file ends after 3 numbers", "ncols 2 x nrows 2 = 4", "get a complete copy"}},
        Malformed{"TooMany",
                  twoByTwo + "1 2\n3 4\n5 6",
                  {"line 8: the file ends after 6 numbers", "= 4 are announced", "take the surplus numbers out"}},
        Malformed{"SizesThatDoNotMatch",
                  "ncols 3\nnrows 2\n" + corner + "11 12\n13 14\n",
                  {"after 4 numbers", "ncols 3 x nrows 2 = 6"}},
        Malformed{"MoreWordsThanNumbers",
                  twoByTwo + "1 2,5\n3,5 4,5\n",
                  {"line 6: '2,5' stands where a number should be", "decimal point", "NODATA_value"}},
        Malformed{"AWordBehind", twoByTwo + "1 2\n3 4\nend\n", {"line 8: 'end' stands where a number should be"}},
        Malformed{"AWordBefore",
                  twoByTwo + "units m\n1 2\n3 4\n",
                  {"line 6: 'units' is neither a number nor a keyword", "Keywords are ncols"}},
        Malformed{"NoColumns", "ncols 0\nnrows 2\n" + corner, {"line 1: ncols is '0'", "from 1 to 2147483647"}},
        Malformed{"NegativeRows", "ncols 2\nnrows -2\n" + corner, {"line 2: nrows is '-2'", "from 1"}},
        Malformed{"HalfAColumn", "ncols 2.5\nnrows 2\n" + corner, {"line 1: '2.5'", "whole number ncols"}},
        Malformed{"AWordForASize", "ncols two\nnrows 2\n" + corner, {"line 1: 'two'", "how many columns"}},
        Malformed{"ASizeThatOverflows",
                  "ncols 99999999999999999999\nnrows 2\n" + corner + "1 2",
                  {"line 1: ncols is '99999999999999999999'", "from 1 to 2147483647"}},
        Malformed{"SizesWhoseProductIsAbsurd",
                  "ncols 2147483647\nnrows 2147483647\n" + corner + "1 2",
                  {"4611686014132420609 numbers", "holds at most 2", "cut short"}},
        Malformed{"MoreThanTheFileCanHold",
                  "ncols 100\nnrows 100\n" + corner + "1 2 3 4 5",
                  {"line 6: ncols 100 x nrows 100 = 10000 numbers are announced", "holds at most 5"}},
        Malformed{"NoCellSize",
                  "ncols 2\nnrows 2\nxllcorner 1\nyllcorner 1\n1 2 3 4",
                  {"line 5: cellsize is missing above the numbers", "Add it"}},
        Malformed{"NoRows", "ncols 2\n" + corner + "1 2 3 4", {"line 5: nrows is missing"}},
        Malformed{"NoPlace",
                  "ncols 2\nnrows 2\nxllcorner 1\ncellsize 1\n1 2 3 4",
                  {"line 5: yllcorner or yllcenter is missing"}},
        Malformed{"ZeroCellSize", "ncols 2\nnrows 2\ncellsize 0\n", {"line 3: cellsize is '0'", "above 0"}},
        Malformed{"NegativeCellSize", "ncols 2\nnrows 2\ncellsize -5\n", {"line 3: cellsize is '-5'", "above 0"}},
        Malformed{"AWordForTheCellSize", "ncols 2\nnrows 2\ncellsize big\n", {"line 3: 'big'", "the number cellsize"}},
        Malformed{"AnExtentBeyondADouble",
                  "ncols 2\nnrows 2\nxllcorner 1e308\nyllcorner 0\ncellsize 1e308\n1 2 3 4",
                  {"line 5: the grid reaches beyond", "Correct cellsize"}},
        Malformed{"AKeywordTwice", "ncols 2\nncols 3\n" + corner, {"line 2: ncols was already given in line 1"}},
        Malformed{"CornerAndCentre",
                  twoByTwo + "xllcenter 5\n1 2 3 4",
                  {"line 6: there are both xllcorner and xllcenter", "Leave one"}},
        Malformed{"OnlyGaps", twoByTwo + "-9999 -9999 -9999 -9999", {"holds nothing but gaps", "correct NODATA"}},
        Malformed{"ZeroBytes", twoByTwo + std::string("1 2\n3 \0", 7), {"line 7: there are binary data"}},
        Malformed{"AnEndlessWord", twoByTwo + "1 2 3 " + std::string(100000, '4'), {"longer than any number"}}),
    nameOf);
