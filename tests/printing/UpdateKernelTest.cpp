#include "base/AppLock.h"
#include "exception/ExceptionBase.h"
#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PrintingUtil.h"
#include "integration/printing/PrintingUtilIntern.h"
#include "tests/printing/PrintingTest.h"

#include <QSize>
#include <cstdio>
#include <gmock/gmock.h>

using namespace velmora::test;
using namespace velmora::sdk::integration;
using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::IsSubsetOf;
using ::testing::Not;
using velmora::testing::EngineProbe;
using Calls = std::vector<std::string>;

namespace {

constexpr int Refused = 77;
constexpr const char* Names[] = {"Letter", "Double", "A4", "A3", "Custom1", "Custom2"};
const std::string WidthPath = "Paper/PaperSizeInfo/Custom2/Width";
const std::string HeightPath = "Paper/PaperSizeInfo/Custom2/Height";
const std::string IndexPath = "Paper/PaperSize";
const std::string OrientationPath = "Paper/OrientPortrait";

class UpdateKernel : public PrintingTest {
protected:
    bool refits() { return refitsIn(logOf(UpdateKernelFromPrinter, m_printer)); }

    static bool refitsIn(const Calls& calls)
    {
        const Calls refit{"VelUtilFrameFitAllToPaper", "VelUtilWorkViewFitPaper"};
        const bool begun = std::find(calls.begin(), calls.end(), refit[0]) != calls.end();
        const bool inOrder = std::search(calls.begin(), calls.end(), refit.begin(), refit.end()) != calls.end();
        EXPECT_EQ(begun, inOrder);
        return inOrder;
    }
};

/// The reads of the engine's papers up to and with `last`.
Calls definitionsUpTo(int last)
{
    Calls calls;
    for (int index = 0; index <= last; ++index) {
        const std::string branch = std::string("styleGet GlobalPaper/PaperSizeInfo/") + Names[index] + "/";
        calls.push_back(branch + "Width");
        calls.push_back(branch + "Height");
    }
    return calls;
}

Calls operator+(Calls a, const Calls& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

std::string lengthWrite(const std::string& path, int millimeters)
{
    char text[40];
    std::snprintf(text, sizeof text, " DValue=%.10g", millimeters / 25.4);
    return "styleSet " + path + text;
}

/// The engine's paper that a sheet of the toolkit is, or -1.
int kernelPaperOf(const BasicPaperSize& row)
{
    const std::vector<KernelPaperSize>& papers = kernelPapers();
    for (std::size_t i = 0; i < papers.size(); ++i)
        if (qAbs(papers[i].width - row.width) <= 1 && qAbs(papers[i].height - row.height) <= 1)
            return static_cast<int>(i);
    return -1;
}

} // namespace

TEST_F(UpdateKernel, LocksWritesOrientationThenSizeThenRefits)
{
    setPaperName(m_printer, PaperName::A4);
    const Calls expected = Calls{"AppLock 0", "styleSet Paper/OrientPortrait IValue=1"} + definitionsUpTo(2) +
                           Calls{"styleSet Paper/PaperSize IValue=2 DValue=2", "VelUtilFrameFitAllToPaper",
                                 "VelUtilWorkViewFitPaper", "~AppLock"};
    EXPECT_THAT(logOf(UpdateKernelFromPrinter, m_printer), ElementsAreArray(expected));
}

TEST_F(UpdateKernel, AnUnknownSheetBecomesTheSecondCustomPaper)
{
    setPaperName(m_printer, PaperName::B5);
    const Calls expected =
        Calls{"AppLock 0", "styleSet Paper/OrientPortrait IValue=1"} + definitionsUpTo(5) +
        Calls{lengthWrite(WidthPath, 182), lengthWrite(HeightPath, 257), "styleSet Paper/PaperSize IValue=5 DValue=5",
              "VelUtilFrameFitAllToPaper", "VelUtilWorkViewFitPaper",    "~AppLock"};
    EXPECT_THAT(logOf(UpdateKernelFromPrinter, m_printer), ElementsAreArray(expected));
    EXPECT_EQ(182 / 25.4, kernelLength("Custom2", "Width"));
    EXPECT_EQ(257 / 25.4, kernelLength("Custom2", "Height"));
    EXPECT_EQ(5, kernelPaper());
}

TEST_F(UpdateKernel, ACustomSheetIsReadFromThePropertyAfterTheOrientation)
{
    setCustomPaper(m_printer, 100, 150);
    m_printer.printEngine()->setProperty(static_cast<QPrintEngine::PrintEnginePropertyKey>(11), QSize(120, 160));
    const Calls expected =
        Calls{"AppLock 0", "styleSet Paper/OrientPortrait IValue=1", "styleGet Paper/OrientPortrait", "property 11"} +
        definitionsUpTo(5) +
        Calls{lengthWrite(WidthPath, 120), lengthWrite(HeightPath, 160), "styleSet Paper/PaperSize IValue=5 DValue=5",
              "VelUtilFrameFitAllToPaper", "VelUtilWorkViewFitPaper",    "~AppLock"};
    EXPECT_THAT(logOf(UpdateKernelFromPrinter, m_printer), ElementsAreArray(expected));
}

TEST_F(UpdateKernel, APropertyWithoutExtentIsTheSizeOfACustomSheetAllTheSame)
{
    setCustomPaper(m_printer, 100, 150);
    m_printer.printEngine()->setProperty(static_cast<QPrintEngine::PrintEnginePropertyKey>(11), QSize(0, 160));
    const Calls calls = logOf(UpdateKernelFromPrinter, m_printer);
    EXPECT_THAT(calls, Contains(lengthWrite(WidthPath, 0)));
    EXPECT_THAT(calls, Contains(lengthWrite(HeightPath, 160)));
}

TEST_F(UpdateKernel, ThePropertyIsAskedForACustomSheetOnly)
{
    for (const BasicPaperSize& row : BasicPaperSizes) {
        setPaperName(m_printer, row.name);
        EXPECT_THAT(logOf(UpdateKernelFromPrinter, m_printer), Not(Contains("property 11"))) << row.name;
    }
}

TEST_F(UpdateKernel, WithoutThePropertyACustomSheetIsReadFromThePrinterUprightInBothOrientations)
{
    m_printer.engine().keepsPaperProperty = false;
    for (const bool portrait : {true, false}) {
        setPortrait(m_printer, portrait);
        setCustomPaper(m_printer, 100, 150);
        UpdateKernelFromPrinter(m_printer);
        EXPECT_EQ(100 / 25.4, kernelLength("Custom2", "Width"));
        EXPECT_EQ(150 / 25.4, kernelLength("Custom2", "Height"));
        setKernelCustomPaper(10, 10);
    }
}

TEST_F(UpdateKernel, TakesTheOrientation)
{
    setPortrait(m_printer, false);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_FALSE(kernelPortrait());
    setPortrait(m_printer, true);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_TRUE(kernelPortrait());
}

TEST_F(UpdateKernel, EverySheetOfTheTableInBothOrientations)
{
    for (const bool portrait : {true, false}) {
        setPortrait(m_printer, portrait);
        for (const BasicPaperSize& row : BasicPaperSizes) {
            setKernelCustomPaper(10, 10);
            setPaperName(m_printer, row.name);
            EXPECT_TRUE(refits());
            const int expected = kernelPaperOf(row);
            EXPECT_EQ(expected >= 0 ? expected : 5, kernelPaper()) << row.name;
            EXPECT_EQ(expected >= 0 ? 10 : row.width / 25.4, kernelLength("Custom2", "Width")) << row.name;
            EXPECT_EQ(expected >= 0 ? 10 : row.height / 25.4, kernelLength("Custom2", "Height")) << row.name;
            EXPECT_EQ(portrait, kernelPortrait());
        }
    }
}

TEST_F(UpdateKernel, EveryPaperOfTheEngineIsFoundOneMillimeterOffAndNotTwo)
{
    const std::vector<KernelPaperSize>& papers = kernelPapers();
    for (int index = 0; index < 6; ++index) {
        const KernelPaperSize& paper = papers[static_cast<std::size_t>(index)];
        for (const int off : {-2, -1, 0, 1, 2}) {
            for (const bool wide : {true, false}) {
                setKernelCustomPaper(10, 10);
                const int width = paper.width + (wide ? off : 0);
                const int height = paper.height + (wide ? 0 : off);
                setCustomPaper(m_printer, 500, 500);
                m_printer.printEngine()->setProperty(static_cast<QPrintEngine::PrintEnginePropertyKey>(11),
                                                     QSize(width, height));
                UpdateKernelFromPrinter(m_printer);
                EXPECT_EQ(qAbs(off) <= 1 ? index : 5, kernelPaper()) << paper.name << off;
                EXPECT_EQ(qAbs(off) <= 1 ? 10 : width / 25.4, kernelLength("Custom2", "Width")) << paper.name << off;
            }
        }
    }
}

TEST_F(UpdateKernel, TheFirstOfTheEnginesPapersThatFitsIsTaken)
{
    setKernelLength("Custom1", "Width", 210 / 25.4);
    setKernelLength("Custom1", "Height", 297 / 25.4);
    setPaperName(m_printer, PaperName::A4);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_EQ(2, kernelPaper());
}

TEST_F(UpdateKernel, TheFirstCustomPaperIsFoundAndNeverWritten)
{
    setKernelLength("Custom1", "Width", 100 / 25.4);
    setKernelLength("Custom1", "Height", 150 / 25.4);
    setCustomPaper(m_printer, 100, 150);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_EQ(4, kernelPaper());
    setCustomPaper(m_printer, 300, 300);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_EQ(100 / 25.4, kernelLength("Custom1", "Width"));
    EXPECT_EQ(150 / 25.4, kernelLength("Custom1", "Height"));
}

TEST_F(UpdateKernel, ASheetThatTheEngineHasAlreadyStillRefits)
{
    setKernelPaper(2);
    setPaperName(m_printer, PaperName::A4);
    EXPECT_TRUE(refits());
    EXPECT_TRUE(refits());
    EngineProbe::refuseStyleWrites(IndexPath, Refused);
    EngineProbe::refuseStyleWrites(OrientationPath, Refused);
    EXPECT_TRUE(refits());
}

TEST_F(UpdateKernel, ACustomSheetThatTheEngineHasAlreadyIsFoundAmongItsPapersAndRefits)
{
    setPaperName(m_printer, PaperName::B5);
    EXPECT_TRUE(refits());
    const Calls calls = logOf(UpdateKernelFromPrinter, m_printer);
    EXPECT_TRUE(refitsIn(calls));
    EXPECT_THAT(calls, Not(Contains(lengthWrite(WidthPath, 182))));
    EXPECT_THAT(calls, Contains("styleSet Paper/PaperSize IValue=5 DValue=5"));
}

TEST_F(UpdateKernel, RefitsExactlyWhenOneOfTheFourWritesOfACustomSheetIsTaken)
{
    const std::string paths[] = {OrientationPath, WidthPath, HeightPath, IndexPath};
    for (unsigned refused = 0; refused < 16; ++refused) {
        EngineProbe::reset();
        setKernelCustomPaper(10, 10);
        setKernelPaper(0);
        setKernelPortrait(false);
        setPaperName(m_printer, PaperName::B5);
        for (unsigned i = 0; i < 4; ++i)
            EngineProbe::refuseStyleWrites(paths[i], (refused & (1u << i)) != 0 ? Refused : 0);
        EXPECT_EQ(refused != 15, refits()) << refused;
    }
}

TEST_F(UpdateKernel, AllThreeWritesOfACustomSheetAreTriedWhateverTheFirstOnesAnswer)
{
    setPaperName(m_printer, PaperName::B5);
    for (const std::string& path : {WidthPath, HeightPath, IndexPath})
        EngineProbe::refuseStyleWrites(path, Refused);
    const Calls calls = logOf(UpdateKernelFromPrinter, m_printer);
    EXPECT_THAT((Calls{lengthWrite(WidthPath, 182), lengthWrite(HeightPath, 257),
                       "styleSet Paper/PaperSize IValue=5 DValue=5"}),
                IsSubsetOf(calls));
}

TEST_F(UpdateKernel, ATakenOrientationRefitsAlthoughTheSizeIsRefused)
{
    setKernelPortrait(false);
    setPaperName(m_printer, PaperName::B5);
    for (const std::string& path : {WidthPath, HeightPath, IndexPath})
        EngineProbe::refuseStyleWrites(path, Refused);
    EXPECT_TRUE(refits());
    EXPECT_FALSE(refits()); // upright already, and still refused
}

TEST_F(UpdateKernel, TheOrientationIsAChangeOnlyWhenTheEngineTakesIt)
{
    setKernelPortrait(false);
    EngineProbe::refuseStyleWrites(OrientationPath, Refused);
    EXPECT_FALSE(SetKernelOrientationFromPrinter(m_printer));
    EXPECT_FALSE(kernelPortrait());
    EngineProbe::refuseStyleWrites(OrientationPath, 0);
    EXPECT_TRUE(SetKernelOrientationFromPrinter(m_printer));
    EXPECT_TRUE(kernelPortrait());
    EXPECT_FALSE(SetKernelOrientationFromPrinter(m_printer)); // it is there already
}

TEST_F(UpdateKernel, APaperOfTheEngineIsAlwaysAChangeOfSize)
{
    setPaperName(m_printer, PaperName::Letter);
    EXPECT_TRUE(SetKernelPageSizeFromPrinter(m_printer));
    EngineProbe::refuseStyleWrites(IndexPath, Refused);
    EXPECT_TRUE(SetKernelPageSizeFromPrinter(m_printer));
}

TEST_F(UpdateKernel, LedgerAndTabloidStayApart)
{
    setPaperName(m_printer, PaperName::Tabloid);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_EQ(1, kernelPaper());
    setPaperName(m_printer, PaperName::Ledger);
    UpdateKernelFromPrinter(m_printer);
    EXPECT_EQ(5, kernelPaper());
    EXPECT_EQ(432 / 25.4, kernelLength("Custom2", "Width"));
    EXPECT_EQ(279 / 25.4, kernelLength("Custom2", "Height"));
}

TEST_F(UpdateKernel, TheLockIsReleasedWhenTheToolboxThrows)
{
    for (const char* point : {"ArgList", "StyleValue"}) {
        EngineProbe::startLog();
        EngineProbe::clearLog();
        EngineProbe::throwAt(point);
        EXPECT_THROW(UpdateKernelFromPrinter(m_printer), velmora::ExceptionBase);
        EXPECT_EQ(0, velmora::sdk::AppLock::depth());
        EXPECT_THAT(EngineProbe::log(), ElementsAreArray(Calls{"AppLock 0", "~AppLock"}));
    }
}

TEST_F(UpdateKernel, TheLockIsHeldForTheWholeUpdateAndNoLonger)
{
    const Calls calls = logOf(UpdateKernelFromPrinter, m_printer);
    EXPECT_EQ("AppLock 0", calls.front());
    EXPECT_EQ("~AppLock", calls.back());
    EXPECT_EQ(0, velmora::sdk::AppLock::depth());
}
