#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PaperLength.h"
#include "integration/printing/PrintingUtilIntern.h"

#include <gtest/gtest.h>
#include <iterator>
#include <rapidcheck.h>

using namespace velmora::sdk::integration;

namespace {

struct ExpectedRow {
    int paperSize;
    int width;
    int height;
};

constexpr ExpectedRow ExpectedRows[] = {
    {5, 841, 1189}, {6, 594, 841},  {7, 420, 594},  {8, 297, 420},  {0, 210, 297},    {9, 148, 210},
    {10, 105, 148}, {11, 74, 105},  {12, 52, 74},   {13, 37, 52},   {14, 1030, 1456}, {15, 728, 1030},
    {16, 32, 45},   {17, 515, 728}, {18, 364, 515}, {19, 257, 364}, {1, 182, 257},    {20, 128, 182},
    {21, 91, 128},  {22, 64, 91},   {23, 45, 64},   {24, 163, 229}, {25, 105, 241},   {26, 110, 220},
    {4, 191, 254},  {27, 210, 330}, {28, 432, 279}, {3, 216, 356},  {2, 216, 279},    {29, 279, 432},
};

bool fit(const BasicPaperSize& a, const BasicPaperSize& b, int tolerance)
{
    return qAbs(a.width - b.width) <= tolerance && qAbs(a.height - b.height) <= tolerance;
}

} // namespace

TEST(BasicPaperSizes, HasTheToolkitsThirtyPapersInTheOrderOfTheSearch)
{
    ASSERT_EQ(30u, std::size(BasicPaperSizes));
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(ExpectedRows[i].paperSize, BasicPaperSizes[i].name) << i;
        EXPECT_EQ(ExpectedRows[i].width, BasicPaperSizes[i].width) << i;
        EXPECT_EQ(ExpectedRows[i].height, BasicPaperSizes[i].height) << i;
    }
}

TEST(BasicPaperSizes, HasEveryPaperOnceAndNoCustomOne)
{
    for (int paperSize = 0; paperSize < 30; ++paperSize) {
        int rows = 0;
        for (const BasicPaperSize& row : BasicPaperSizes)
            rows += row.name == paperSize;
        EXPECT_EQ(1, rows) << paperSize;
    }
    for (const BasicPaperSize& row : BasicPaperSizes)
        EXPECT_NE(PaperName::Custom, row.name);
}

TEST(BasicPaperSizes, NoSheetFitsTwoRows)
{
    for (const BasicPaperSize& a : BasicPaperSizes)
        for (const BasicPaperSize& b : BasicPaperSizes)
            EXPECT_EQ(a.name == b.name, fit(a, b, 2)) << a.name << " " << b.name;
}

TEST(Millimeters, TheUsualPapersHaveTheirUsualSizes)
{
    EXPECT_EQ(216, wholeMillimetersFromInches(8.5));
    EXPECT_EQ(279, wholeMillimetersFromInches(11.0));
    EXPECT_EQ(210, wholeMillimetersFromInches(8.27));
    EXPECT_EQ(297, wholeMillimetersFromInches(11.69));
    EXPECT_EQ(420, wholeMillimetersFromInches(16.54));
    EXPECT_EQ(432, wholeMillimetersFromInches(17.0));
    EXPECT_EQ(0, wholeMillimetersFromInches(0.0));
}

TEST(Millimeters, AHalfFallsAndALittleMoreRises)
{
    EXPECT_EQ(10, wholeMillimetersFromInches(10.5 / 25.4));
    EXPECT_EQ(10, wholeMillimetersFromInches(10.5009 / 25.4));
    EXPECT_EQ(11, wholeMillimetersFromInches(10.502 / 25.4));
    EXPECT_EQ(101, wholeMillimetersFromInches(101.5 / 25.4));
    EXPECT_EQ(102, wholeMillimetersFromInches(101.502 / 25.4));
}

TEST(Millimeters, InchesAreMultipliedInTwoStepsAndInThisOrder)
{
    // Multiplied by 25.4 at once, each of these would be a millimetre less.
    EXPECT_EQ(102, wholeMillimetersFromInches(3.9961023622047245));
    EXPECT_EQ(103, wholeMillimetersFromInches(4.0354724409448819));
    EXPECT_EQ(116, wholeMillimetersFromInches(4.5472834645669291));
}

TEST(Millimeters, ANegativeLengthIsCutOffTowardsZero)
{
    EXPECT_EQ(0, wholeMillimetersFromInches(-1.0 / 25.4));
    EXPECT_EQ(-1, wholeMillimetersFromInches(-2.0 / 25.4));
}

TEST(Millimeters, AreDividedByTheMillimetersOfAnInch)
{
    EXPECT_EQ(182 / 25.4, inchesFromWholeMillimeters(182));
    EXPECT_EQ(1.0, inchesFromWholeMillimeters(127) / 5);
}

TEST(Millimeters, EveryWholeMillimeterSurvivesTheWayToInchesAndBack)
{
    EXPECT_TRUE(rc::check([] {
        const long long millimeters = *rc::gen::inRange(0LL, 10000000LL);
        RC_ASSERT(wholeMillimetersFromInches(inchesFromWholeMillimeters(millimeters)) == millimeters);
    }));
}

TEST(Millimeters, NoLengthIsRoundedByMoreThanHalfAMillimeter)
{
    EXPECT_TRUE(rc::check([] {
        const double inches = *rc::gen::inRange(0, 100000000) / 1000000.0;
        const double error = static_cast<double>(wholeMillimetersFromInches(inches)) - inches * 25.4;
        RC_ASSERT(error > -0.502);
        RC_ASSERT(error < 0.4991);
    }));
}

TEST(SamePaper, AllowsOneMillimeterOnEachSideAndNotTwo)
{
    const PaperMillimeters a4{210, 297};
    for (int dw = -3; dw <= 3; ++dw) {
        for (int dh = -3; dh <= 3; ++dh) {
            const bool expected = qAbs(dw) <= 1 && qAbs(dh) <= 1;
            EXPECT_EQ(expected, isSamePaper(a4, {210 + dw, 297 + dh})) << dw << " " << dh;
            EXPECT_EQ(expected, isSamePaper({210 + dw, 297 + dh}, a4)) << dw << " " << dh;
        }
    }
}

TEST(SamePaper, DoesNotTurnASheet)
{
    EXPECT_FALSE(isSamePaper({210, 297}, {297, 210}));
}
