#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PaperStyle.h"
#include "integration/printing/PrintingUtil.h"
#include "tests/printing/PrintingTest.h"

#include "exception/ExceptionBase.h"

#include <QSize>
#include <algorithm>
#include <gmock/gmock.h>

using namespace velmora::test;
using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;
using velmora::sdk::integration::BasicPaperSize;
using velmora::sdk::integration::BasicPaperSizes;
using velmora::sdk::integration::kernelPaperName;
using velmora::sdk::integration::readKernelPaperLength;
using velmora::sdk::integration::UpdatePrinterFromKernel;
using velmora::testing::EngineProbe;
using Calls = std::vector<std::string>;

namespace {

class UpdatePrinter : public PrintingTest {
protected:
    /// The last thing that the printer was told about its paper.
    std::string paperOf(double widthMillimeters, double heightMillimeters)
    {
        setKernelCustomPaper(widthMillimeters / 25.4, heightMillimeters / 25.4);
        return logOf(UpdatePrinterFromKernel, m_printer).back();
    }
};

std::string pageSize(int paperSize)
{
    return "setPageSize " + std::to_string(paperSize);
}

std::string customPaper(int width, int height)
{
    return "setCustomPaper " + std::to_string(width) + "x" + std::to_string(height);
}

Calls readsOf(const std::string& paper)
{
    const std::string branch = "styleGet GlobalPaper/PaperSizeInfo/" + paper + "/";
    return {"styleGet Paper/OrientPortrait",
            "styleGet Paper/PaperSize",
            branch + "Width",
            branch + "Height",
            branch + "LeftHardClipOffset",
            branch + "RightHardClipOffset",
            branch + "BottomHardClipOffset",
            branch + "TopHardClipOffset",
            "styleGet Paper/OrientPortrait"};
}

Calls operator+(Calls a, const Calls& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace

TEST_F(UpdatePrinter, ReadsTheEngineAndTellsThePrinterInOrder)
{
    setKernelPaper(2);
    const Calls expected = Calls{"styleGet Paper/OrientPortrait", "setOrientation 0", "setFullPage 1"} + readsOf("A4") +
                           Calls{pageSize(PaperName::A4)};
    EXPECT_THAT(logOf(UpdatePrinterFromKernel, m_printer), ElementsAreArray(expected));
}

TEST_F(UpdatePrinter, ACustomPaperIsNamedThenSizedThenMadeReal)
{
    setKernelCustomPaper(100 / 25.4, 150 / 25.4);
    const Calls expected = Calls{"styleGet Paper/OrientPortrait", "setOrientation 0", "setFullPage 1"} +
                           readsOf("Custom2") + callsOfCustomPageSize() +
                           Calls{"setProperty 11 100x150", customPaper(100, 150)};
    EXPECT_THAT(logOf(UpdatePrinterFromKernel, m_printer), ElementsAreArray(expected));
    EXPECT_EQ(PaperName::Custom, paperName(m_printer));
}

TEST_F(UpdatePrinter, TakesTheOrientation)
{
    setKernelPortrait(false);
    UpdatePrinterFromKernel(m_printer);
    EXPECT_FALSE(isPortrait(m_printer));
    setKernelPortrait(true);
    UpdatePrinterFromKernel(m_printer);
    EXPECT_TRUE(isPortrait(m_printer));
}

TEST_F(UpdatePrinter, GivesThePrinterTheWholeSheet)
{
    m_printer.setFullPage(false);
    UpdatePrinterFromKernel(m_printer);
    EXPECT_TRUE(m_printer.fullPage());
}

TEST_F(UpdatePrinter, TakesNoLockAndChangesNothingInTheEngine)
{
    const Calls calls = logOf(UpdatePrinterFromKernel, m_printer);
    EXPECT_THAT(calls, Not(Contains(HasSubstr("AppLock"))));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("styleSet"))));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("VelUtil"))));
}

TEST_F(UpdatePrinter, EveryPaperOfTheEngineInBothOrientations)
{
    const std::string expected[] = {pageSize(PaperName::Letter), pageSize(PaperName::Tabloid), pageSize(PaperName::A4),
                                    pageSize(PaperName::A3),     customPaper(203, 254),        customPaper(254, 254)};
    for (const bool portrait : {true, false}) {
        setKernelPortrait(portrait);
        for (int index = 0; index < 6; ++index) {
            setKernelPaper(index);
            EXPECT_EQ(expected[index], logOf(UpdatePrinterFromKernel, m_printer).back()) << index;
            EXPECT_EQ(portrait, isPortrait(m_printer));
        }
    }
}

TEST_F(UpdatePrinter, EverySheetOfTheTableInBothOrientations)
{
    for (const bool portrait : {true, false}) {
        setKernelPortrait(portrait);
        for (const BasicPaperSize& row : BasicPaperSizes)
            EXPECT_EQ(pageSize(row.name), paperOf(row.width, row.height));
    }
}

TEST_F(UpdatePrinter, OneMillimeterOffOnAnySideIsTheSameSheet)
{
    for (const BasicPaperSize& row : BasicPaperSizes) {
        for (const int dw : {-1, 0, 1})
            for (const int dh : {-1, 0, 1})
                EXPECT_EQ(pageSize(row.name), paperOf(row.width + dw, row.height + dh)) << dw << " " << dh;
    }
}

TEST_F(UpdatePrinter, TwoMillimetersOffOnAnySideIsACustomSheetOfExactlyThatSize)
{
    const int offsets[][2] = {{-2, 0}, {2, 0}, {0, -2}, {0, 2}};
    for (const BasicPaperSize& row : BasicPaperSizes) {
        for (const auto& offset : offsets) {
            const int width = row.width + offset[0];
            const int height = row.height + offset[1];
            EXPECT_EQ(customPaper(width, height), paperOf(width, height)) << row.name;
        }
    }
}

TEST_F(UpdatePrinter, ASheetOnTheBoundaryBetweenTwoMillimetersDecidesByTheRoundingRule)
{
    // 212.5 mm count as 212, two more than an A4 sheet is wide; 211.5 mm as 211.
    EXPECT_EQ(pageSize(PaperName::A4), paperOf(211.5, 297));
    EXPECT_EQ(customPaper(212, 297), paperOf(211.502, 297));
    EXPECT_EQ(customPaper(212, 297), paperOf(212.5, 297));
}

TEST_F(UpdatePrinter, ElevenBySeventeenInchesIsTabloidAndSeventeenByElevenIsLedger)
{
    setKernelCustomPaper(11, 17);
    EXPECT_EQ(pageSize(PaperName::Tabloid), logOf(UpdatePrinterFromKernel, m_printer).back());
    setKernelCustomPaper(17, 11);
    EXPECT_EQ(pageSize(PaperName::Ledger), logOf(UpdatePrinterFromKernel, m_printer).back());
}

TEST_F(UpdatePrinter, ASheetLyingOnItsSideIsNotItsUprightNamesake)
{
    EXPECT_EQ(customPaper(297, 210), paperOf(297, 210));
}

TEST_F(UpdatePrinter, AnISOSheetOfTheBSeriesIsCustomBecauseTheTableHasTheSheetsOfJIS)
{
    EXPECT_EQ(customPaper(176, 250), paperOf(176, 250));
    EXPECT_EQ(PaperName::Custom, paperName(m_printer));
    EXPECT_EQ(pageSize(PaperName::B5), paperOf(182, 257));
}

TEST_F(UpdatePrinter, WithoutAReadableIndexThePrinterGetsTheFirstPaper)
{
    setKernelPaper(2);
    EngineProbe::failStyleReads("Paper/PaperSize");
    const Calls calls = logOf(UpdatePrinterFromKernel, m_printer);
    EXPECT_THAT(calls, Contains("styleGet GlobalPaper/PaperSizeInfo/Letter/Width"));
    EXPECT_EQ(pageSize(PaperName::Letter), calls.back());
}

TEST_F(UpdatePrinter, ANumberThatNoPaperHasAddsNoNameToThePath)
{
    for (const int index : {-1, 6, 100}) {
        EXPECT_EQ(nullptr, kernelPaperName(index));
        EngineProbe::startLog();
        EngineProbe::clearLog();
        EXPECT_EQ(0, readKernelPaperLength(index, "Width")) << index;
        EXPECT_THAT(EngineProbe::log(), ElementsAreArray(Calls{"styleGet GlobalPaper/PaperSizeInfo/Width"})) << index;
    }
}

TEST_F(UpdatePrinter, TheFirstPaperInPlaceOfAnUnreadableOneIsReportedUnderPrintDebugOnly)
{
    EngineProbe::failStyleReads("Paper/PaperSize");
    ::testing::internal::CaptureStderr();
    UpdatePrinterFromKernel(m_printer);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), Not(HasSubstr("Letter")));
    setenv("VELMORA_PRINT_DEBUG", "1", 1);
    ::testing::internal::CaptureStderr();
    UpdatePrinterFromKernel(m_printer);
    unsetenv("VELMORA_PRINT_DEBUG");
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("taking \"Letter\" for the printer"));
}

TEST_F(UpdatePrinter, AnUnreadableOrientationCountsAsLandscape)
{
    EngineProbe::failStyleReads("Paper/OrientPortrait");
    UpdatePrinterFromKernel(m_printer);
    EXPECT_FALSE(isPortrait(m_printer));
}

TEST_F(UpdatePrinter, AnUnreadableSizeCountsAsNothingAndIsNotMadeReal)
{
    setPaperName(m_printer, PaperName::A3);
    EngineProbe::failStyleReads("GlobalPaper/PaperSizeInfo/Letter/Width");
    EXPECT_EQ("setProperty 11 0x279", logOf(UpdatePrinterFromKernel, m_printer).back());
    EXPECT_EQ(PaperName::A3, paperName(m_printer));
}

TEST_F(UpdatePrinter, UnreadableMarginsChangeNothing)
{
    for (const char* side : {"Left", "Right", "Bottom", "Top"})
        EngineProbe::failStyleReads(std::string("GlobalPaper/PaperSizeInfo/Letter/") + side + "HardClipOffset");
    EXPECT_EQ(pageSize(PaperName::Letter), logOf(UpdatePrinterFromKernel, m_printer).back());
}

TEST_F(UpdatePrinter, ExceptionsOfTheToolboxPassThrough)
{
    EngineProbe::throwAt("ArgList");
    EXPECT_THROW(UpdatePrinterFromKernel(m_printer), velmora::ExceptionBase);
    EngineProbe::throwAt("StyleValue");
    EXPECT_THROW(UpdatePrinterFromKernel(m_printer), velmora::ExceptionBase);
}
