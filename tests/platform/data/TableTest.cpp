#include "tests/platform/data/ReadSupport.h"

#include <gmock/gmock.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::vector<std::string> names(const Table& table)
{
    std::vector<std::string> result;
    for (const Column& column : table.columns)
        result.push_back(column.name);
    return result;
}

} // namespace

TEST(Table, AHeaderOfWordsNamesTheColumns)
{
    const Table table = readTable("time,speed\n0,1.5\n1,-2e3\n");
    EXPECT_EQ(table.name, "sample.txt");
    EXPECT_THAT(names(table), ElementsAre("time", "speed"));
    EXPECT_THAT(table.columns[0].values, ElementsAre(0, 1));
    EXPECT_THAT(table.columns[1].values, ElementsAre(1.5, -2000));
    EXPECT_TRUE(table.notes.empty());
}

TEST(Table, WithoutAHeaderTheColumnsAreNumbered)
{
    const Table table = readTable("0,10\n1,+20\n");
    EXPECT_THAT(names(table), ElementsAre("Column 1", "Column 2"));
    EXPECT_THAT(table.columns[1].values, ElementsAre(10, 20));
}

class Delimited : public testing::TestWithParam<std::string> {};

TEST_P(Delimited, TheDelimiterIsFoundOut)
{
    const Table table = readTable(GetParam());
    EXPECT_THAT(names(table), ElementsAre("a", "b"));
    EXPECT_THAT(table.columns[0].values, ElementsAre(1, 2, 3));
    EXPECT_THAT(table.columns[1].values, ElementsAre(0.5, 1.5, 2.5));
}

INSTANTIATE_TEST_SUITE_P(Table, Delimited,
                         testing::Values("a,b\n1,0.5\n2,1.5\n3,2.5\n", "a, b\n1, 0.5\n2, 1.5\n3, 2.5\n",
                                         "a;b\n1;0.5\n2;1.5\n3;2.5\n", "a;b\n1;0,5\n2;1,5\n3;2,5\n",
                                         "a\tb\n1\t0.5\n2\t1.5\n3\t2.5\n", "a\tb\n1\t0,5\n2\t1,5\n3\t2,5\n",
                                         "a b\n1 0.5\n2 1.5\n3 2.5\n", "  a   b\n  1   0.5 \n \t2 \t 1.5\n3 2.5",
                                         "a,b\r\n1,0.5\r\n2,1.5\r\n3,2.5\r\n", "a,b\r1,0.5\r2,1.5\r3,2.5\r",
                                         "\xEF\xBB\xBF"
                                         "a,b\n1,0.5\n2,1.5\n3,2.5",
                                         "# first, a remark\na,b\n1,0.5\n  # 7,7,7\n\n2,1.5\n   \n3,2.5\n#",
                                         "\"a\",\"b\"\n\"1\",\"0.5\"\n\"2\" , \"1.5\"\n3,2.5\n"));

TEST(Table, QuotedValuesHoldDelimitersLineEndsAndQuotes)
{
    const Table table = readTable("\"x, \"\"left\"\"\",\"y\n(m)\",\"note\"\n1,2,\"a\nb, \"\"c\"\"\"\n3,4,d\n");
    EXPECT_THAT(names(table), ElementsAre("x, \"left\"", "y\n(m)"));
    EXPECT_THAT(table.columns[1].values, ElementsAre(2, 4));
}

TEST(Table, AQuotedLineEndCountsInTheLinesOfMessages)
{
    EXPECT_THAT(errorOf("a,b\n1,\"\n\r\n\"\n2,3\n4,5\n6,7,8\n"), HasSubstr("line 7: there are 3 values"));
    EXPECT_THAT(errorOf("a,b\n\"\n\",3,4\n5,6\n"), HasSubstr("line 2: there are 3 values"));
}

TEST(Table, MissingValuesAreGaps)
{
    const Table table = readTable("t,v\n0,\n1,NA\n2,n/a\n3,-\n4,NULL\n5,\"\"\n6,8\n");
    EXPECT_TRUE(sameValues(table.columns[1].values, {Gap, Gap, Gap, Gap, Gap, Gap, 8}));
    EXPECT_TRUE(sameValues(readTable("t,v\n0,\" \n\"\n1,\" 2 \"\n").columns[1].values, {Gap, 2}));
    EXPECT_THAT(table.columns[0].values, ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(Table, DatesAreDaysSince1970AndBecomeTheAxis)
{
    const Table table = readTable("v,when\n5,1969-12-31\n6,1970-01-01T06:00\n7,2000-03-01 12:00:00.5Z\n");
    EXPECT_THAT(names(table), ElementsAre("when", "v"));
    EXPECT_TRUE(table.columns[0].isDate);
    EXPECT_FALSE(table.columns[1].isDate);
    EXPECT_THAT(table.columns[0].values, ElementsAre(-1, 0.25, 11017 + (43200.5 / 86400)));
}

TEST(Table, ASecondColumnOfDatesStaysWhereItIs)
{
    const Table table = readTable("from,v,to\n2020-01-01,1,2020-01-02\n2020-02-01,2,2020-02-02\n");
    EXPECT_THAT(names(table), ElementsAre("from", "v", "to"));
    EXPECT_TRUE(table.columns[2].isDate);
}

TEST(Table, ALoneColumnHasTheRowNumberAsItsAxis)
{
    const Table table = readTable("level\n7\nNA\n9\n");
    EXPECT_THAT(names(table), ElementsAre("Row", "level"));
    EXPECT_THAT(table.columns[0].values, ElementsAre(1, 2, 3));
    EXPECT_TRUE(table.columns[0].countsRows);
    EXPECT_FALSE(table.columns[1].countsRows);
    EXPECT_TRUE(sameValues(table.columns[1].values, {7, Gap, 9}));
    EXPECT_THAT(table.notes, ElementsAre("No column can be the axis; the row number is."));
}

TEST(Table, AFirstColumnWithGapsIsNoAxis)
{
    EXPECT_THAT(names(readTable("a,b\n1,2\n,4\n")), ElementsAre("Row", "a", "b"));
    EXPECT_THAT(names(readTable("a,b\n1,2\n2,\n")), ElementsAre("a", "b"));
}

TEST(Table, ManyRowsHaveTheirNumbers)
{
    std::string text;
    for (int row = 0; row < 20000; ++row)
        text += "5\n";
    const Table table = readTable(text);
    ASSERT_EQ(table.columns[0].values.size(), 20000u);
    EXPECT_EQ(table.columns[0].values[8191], 8192);
    EXPECT_EQ(table.columns[0].values.back(), 20000);
}

TEST(Table, TextColumnsAreLeftOutWithANote)
{
    const Table table = readTable("date,rain,weather,empty\n2020-01-01,1,sun,\n2020-01-02,2,fog,NA\n");
    EXPECT_THAT(names(table), ElementsAre("date", "rain"));
    EXPECT_THAT(table.notes, ElementsAre("The column \"weather\" holds text and is left out.",
                                         "The column \"empty\" holds no values and is left out."));
}

TEST(Table, AColumnOfMostlyWordsIsTextEvenWithNumbersInIt)
{
    EXPECT_THAT(names(readTable("a,b,code\n1,2,x1\n2,3,7\n3,4,x3\n")), ElementsAre("a", "b"));
}

TEST(Table, NumbersBeyondADoubleAreGapsAndTooSmallOnesAreZero)
{
    EXPECT_THAT(readTable("a,b\n1,1e-400\n2,3\n").columns[1].values, ElementsAre(0, 3));
    const Table table = readTable("a,b\n1,1e400\n2,1e308\n");
    EXPECT_TRUE(sameValues(table.columns[1].values, {Gap, 1e308}));
    EXPECT_THAT(table.notes,
                ElementsAre("The column \"b\": '1e400' in line 2 is too large for a number and shows as a gap."));
}

TEST(Table, AnOddFieldAmongNumbersIsAGapWithANote)
{
    for (const std::string odd : {"wet", "0x1F", "2020-01-01", "1.2.3"}) {
        const Table table = readTable("a,b\n1,2\n2," + odd + "\n3,4\n");
        EXPECT_TRUE(sameValues(table.columns[1].values, {2, Gap, 4})) << odd;
        EXPECT_THAT(table.notes,
                    ElementsAre("The column \"b\": '" + odd + "' in line 3 is no number and shows as a gap."));
    }
    EXPECT_THAT(readTable("a,b\n1,2\n2,x\n3,4\n3,4\n4,y\n").notes,
                ElementsAre("The column \"b\": 2 fields, the first 'x' in line 3, are no number and show as gaps."));
}

TEST(Table, AnOddFieldAmongDatesIsAGapWithANote)
{
    for (const std::string odd : {"20200102", "2019-02-29", "soon"}) {
        const Table table = readTable("d,v\n2020-01-01,1\n" + odd + ",2\n2020-01-03,3\n");
        EXPECT_TRUE(sameValues(table.columns[0].values, {18262, Gap, 18264})) << odd;
        EXPECT_THAT(table.notes,
                    ElementsAre("The column \"d\": '" + odd + "' in line 3 is no date and shows as a gap."));
    }
}

TEST(Table, OddFieldsInNotesAreShortAndWithoutControlCharacters)
{
    EXPECT_THAT(readTable("a,b\n1,2\n2,\x1B[2J\n3,4\n").notes, ElementsAre(HasSubstr("'?[2J'")));
    EXPECT_THAT(readTable("a,b\n1,2\n2,\xC3\xA4" + std::string(38, 'x') + "\xC3\xA4yz\n3,4\n").notes,
                ElementsAre(HasSubstr("'\xC3\xA4" + std::string(38, 'x') + "...'")));
}

TEST(Table, AnOddFieldLeavesTheAxisWhatItIs)
{
    EXPECT_THAT(names(readTable("a,b\n1,2\nx,3\n3,4\n")), ElementsAre("a", "b"));
}

TEST(Table, TheOrderOfDayAndMonthIsTheOneThatFitsAllRows)
{
    EXPECT_THAT(readTable("d,v\n01/02/1970,1\n01/13/1970,2\n").columns[0].values, ElementsAre(1, 12));
    EXPECT_THAT(readTable("d,v\n01/02/1970,1\n13/02/1970,2\n").columns[0].values, ElementsAre(31, 43));
    const Table open = readTable("d,v\n01/02/1970,1\n02/02/1970,2\n");
    EXPECT_THAT(open.columns[0].values, ElementsAre(31, 32));
    EXPECT_THAT(open.notes, ElementsAre(HasSubstr("'01/02/1970' in line 2")));
    const Table both = readTable("d,v\n01/13/1970,1\n01/14/1970,2\n15/01/1970,3\n01/02/1970,4\n");
    EXPECT_TRUE(sameValues(both.columns[0].values, {12, 13, Gap, 1}));
    EXPECT_THAT(both.notes, ElementsAre(HasSubstr("'15/01/1970' in line 4 is no date with the month first")));
    EXPECT_EQ(both.summaries[0].values, 3u);
    EXPECT_EQ(both.summaries[0].smallest, 1);
}

TEST(Table, NumbersAreDatesOnlyWhereTheHeaderSaysSoAndAllAre)
{
    EXPECT_TRUE(readTable("Date,v\n20240105,1\n,2\n").columns[0].isDate);
    EXPECT_FALSE(readTable("day,v\n20240105,1\n20240106,2\n").columns[0].isDate);
    EXPECT_FALSE(readTable("date,v\n20240105,1\n20241306,2\n").columns[0].isDate);
}

TEST(Table, AMarkThatBecomesClearTooLateIsRefused)
{
    std::string text = "a;b\n";
    for (int row = 0; row < 300; ++row)
        text += "1;1,234\n";
    EXPECT_EQ(readTable(text + "1;1,5\n").columns[1].values[0], 1.234);
    EXPECT_THAT(errorOf(text + "1;2.5\n"), HasSubstr("line 302: '2.5' has another decimal mark than line 2."));
}

TEST(Table, OnceTheMarkIsClearTheOtherOneSeparatesThousandsOrIsOdd)
{
    EXPECT_THAT(readTable("a;b\n1;2.5\n2;1,234\n").columns[1].values, ElementsAre(2.5, 1234));
    EXPECT_TRUE(sameValues(readTable("a;b\n1;2,5\n2;3,5\n3;2.5\n").columns[1].values, {2.5, 3.5, Gap}));
}

TEST(Table, LinesWithFewerValuesEndInGaps)
{
    const Table table = readTable("a,b,c\n1,2,3\n4,5\n6,7,8\n");
    EXPECT_TRUE(sameValues(table.columns[2].values, {3, Gap, 8}));
    EXPECT_THAT(table.notes, ElementsAre("In line 3 there are fewer values than columns; those that are missing show "
                                         "as gaps."));
}

TEST(Table, ASummaryTellsOfEachColumnOfTheFile)
{
    const Table table = readTable("t,v,w,e\ns,m,-,-\n0,3,x,\n1,,y,\n2,-4,z,\n");
    ASSERT_EQ(table.summaries.size(), 4u);
    const ColumnSummary& v = table.summaries[1];
    EXPECT_EQ(v.name + " " + v.unit, "v m");
    EXPECT_EQ(v.kind, ColumnSummary::Numbers);
    EXPECT_EQ(v.values, 2u);
    EXPECT_EQ(v.gaps, 1u);
    EXPECT_EQ(v.smallest, -4);
    EXPECT_EQ(v.largest, 3);
    EXPECT_EQ(v.whyLeftOut, "");
    EXPECT_EQ(table.summaries[2].kind, ColumnSummary::Text);
    EXPECT_EQ(table.summaries[2].whyLeftOut, "it holds text");
    EXPECT_EQ(table.summaries[3].kind, ColumnSummary::Empty);
    EXPECT_EQ(table.summaries[3].whyLeftOut, "it holds no values");
}

TEST(Table, AKeywordOfGridsMayNameAColumn)
{
    EXPECT_THAT(names(readTable("cellsize\n10\n20\n")), ElementsAre("Row", "cellsize"));
    EXPECT_THAT(names(readTable("ncols,nrows\n10,20\n30,40\n")), ElementsAre("ncols", "nrows"));
}

TEST(Table, AHeaderLongerThanTheSampleIsStillTakenApart)
{
    std::string header = "t";
    std::string row = "1";
    for (int i = 0; i < 2000; ++i) {
        header += ";a column with quite a long name " + std::to_string(i);
        row += ";2,5";
    }
    const Table table = readTable(header + "\n" + row + "\n" + row + "\n");
    ASSERT_EQ(table.columns.size(), 2001u);
    EXPECT_THAT(table.columns[2000].values, ElementsAre(2.5, 2.5));
}

TEST(Table, DecimalCommasAreNoDelimitersWhereSemicolonsAre)
{
    const Table table = readTable("0,5;1,5\n1,5;2,5\n");
    ASSERT_EQ(table.columns.size(), 2u);
    EXPECT_THAT(table.columns[1].values, ElementsAre(1.5, 2.5));
}

TEST(Table, TheLineThatTheSampleCutsThroughHasNoSayInTheDelimiter)
{
    std::string text;
    for (int day = 1; day <= 9; ++day) {
        text += "2020-01-0" + std::to_string(day) + " 10:00";
        for (int i = 0; i < 500; ++i)
            text += ",1";
        text += "\n";
    }
    EXPECT_EQ(readTable(text).columns.size(), 501u);
}

class MalformedTable : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedTable, IsRefusedWithPlaceAndRemedy)
{
    expectRefused(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Table, MalformedTable,
    testing::Values(
        Malformed{"Empty", "", {"is empty", "Choose a file"}}, Malformed{"OnlyBlanks", " \n  \r\n", {"is empty"}},
        Malformed{"OnlyComments", "# a\n# b\n", {"is empty"}}, Malformed{"OnlyAMark", "\xEF\xBB\xBF", {"is empty"}},
        Malformed{"OnlyAHeader", "time,speed\n", {"no row of values below its header", "Add the values"}},
        Malformed{"TooFewValuesAmongBlanks",
                  "a b c\n1 2 3\n4 5\n6 7 8\n",
                  {"line 3: there are 2 values, but line 1 has 3", "'5'", "quote a value"}},
        Malformed{"NoRowWithAnAxisAndAValue",
                  "d,v\n2020-01-01,\n,5\n",
                  {"no row with a value both in the column \"d\", which is the axis", "Complete the rows"}},
        Malformed{"TooManyValues", "a,b\n1,2\n3,4\n5,6,7\n", {"line 4: there are 3 values, but line 1 has 2", "'7'"}},
        Malformed{"AnOpenQuote", "a,b\n1,2\n3,\"4\n5,6\n", {"line 3: a quoted value is not closed", "Close it"}},
        Malformed{"TextAfterAQuote", "a,b\n1,2\n\"3\"x,4\n", {"line 3: a quoted value goes on", "twice"}},
        Malformed{"TextAfterAQuoteAmongBlanks", "a b\n1 2\n3 4\n\"3\"x 4\n", {"line 4: a quoted value goes on"}},
        Malformed{"NoNumbers", "a,b\nx,y\nz,w\n", {"has no column of numbers"}},
        Malformed{"OnlyDates", "a,b\n2020-01-01,y\n2020-01-02,w\n", {"has no column of numbers"}},
        Malformed{"OnlyGaps", "a,b\n,NA\n-,null\n", {"holds nothing but gaps", "Choose a file with values"}},
        Malformed{
            "ZeroBytes", std::string("a,b\n1,2\n3,4\0\n", 13), {"line 3: there are binary data", "Choose a text file"}},
        Malformed{"WideCharactersWithoutAMark",
                  std::string("a\0,\0b\0\n\0", 8),
                  {"line 1: there are binary data", "save text as UTF-8"}},
        Malformed{"TooManyColumns", std::string(20000, ','), {"line 1: there are more than 10000 columns"}},
        Malformed{"AnEndlessValue",
                  "a,b\n\"" + std::string(2000000, 'x'),
                  {"line 2: a value has more than a million characters"}}),
    nameOf);
