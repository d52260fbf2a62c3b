#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PrintingUtil.h"
#include "tests/printing/PrintingTest.h"

#include <QPrinter>
#include <rapidcheck.h>

using namespace velmora::test;
using velmora::sdk::integration::BasicPaperSize;
using velmora::sdk::integration::BasicPaperSizes;
using velmora::sdk::integration::UpdateKernelFromPrinter;
using velmora::sdk::integration::UpdatePrinterFromKernel;

namespace {

using RoundTrip = PrintingTest;

void chooseKernelPaper(int width, int height, bool portrait)
{
    setKernelCustomPaper(width / 25.4, height / 25.4);
    setKernelPortrait(portrait);
}

/// The engine's current paper in millimetres, unrounded.
QSizeF kernelSize()
{
    const std::string name = kernelPapers()[static_cast<std::size_t>(kernelPaper())].name;
    return QSizeF(kernelLength(name, "Width") * 25.4, kernelLength(name, "Height") * 25.4);
}

bool isAbout(const QSizeF& size, double width, double height)
{
    return qAbs(size.width() - width) < 2.5 && qAbs(size.height() - height) < 2.5;
}

/// One that comes back as the paper of that name.
bool isAboutANamedPaper(const QSizeF& size)
{
    for (const BasicPaperSize& row : BasicPaperSizes)
        if (isAbout(size, row.width, row.height))
            return true;
    for (const KernelPaperSize& paper : kernelPapers())
        if (isAbout(size, paper.width, paper.height))
            return true;
    return false;
}

} // namespace

TEST_F(RoundTrip, APaperOfTheEngineComesBackWithinAMillimeter)
{
    EXPECT_TRUE(rc::check([this] {
        const int width = *rc::gen::inRange(20, 1500);
        const int height = *rc::gen::inRange(20, 1500);
        const bool portrait = *rc::gen::arbitrary<bool>();
        m_printer.engine().keepsPaperProperty = *rc::gen::arbitrary<bool>();
        chooseKernelPaper(width, height, portrait);
        UpdatePrinterFromKernel(m_printer);
        chooseKernelPaper(700, 700, !portrait);
        UpdateKernelFromPrinter(m_printer);
        // A millimetre from the paper to a row of the table, another from the row to a paper of
        // the engine.
        RC_ASSERT(qAbs(kernelSize().width() - width) < 2.5);
        RC_ASSERT(qAbs(kernelSize().height() - height) < 2.5);
        RC_ASSERT(kernelPortrait() == portrait);
    }));
}

TEST_F(RoundTrip, EveryPaperOfTheEngineComesBackAsItself)
{
    QPrinter realPrinter;
    realPrinter.setOutputFormat(QPrinter::PdfFormat);
    for (QPrinter* const printer : {static_cast<QPrinter*>(&m_printer), &realPrinter}) {
        for (const bool portrait : {true, false}) {
            for (int index = 0; index < 6; ++index) {
                setKernelPaper(index);
                setKernelPortrait(portrait);
                UpdatePrinterFromKernel(*printer);
                setKernelPaper(index == 0 ? 1 : 0);
                setKernelPortrait(!portrait);
                UpdateKernelFromPrinter(*printer);
                EXPECT_EQ(index, kernelPaper());
                EXPECT_EQ(portrait, kernelPortrait());
            }
        }
    }
    EXPECT_EQ(10, kernelLength("Custom2", "Width"));
}

TEST_F(RoundTrip, ACustomPaperComesBackWithinAMillimeterThroughARealPrinter)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    EXPECT_TRUE(rc::check([&printer] {
        const QSizeF size(*rc::gen::inRange(200, 12001) / 10.0, *rc::gen::inRange(200, 12001) / 10.0);
        const bool portrait = *rc::gen::arbitrary<bool>();
        RC_PRE(!isAboutANamedPaper(size));
        setKernelCustomPaper(size.width() / 25.4, size.height() / 25.4);
        setKernelPortrait(portrait);
        UpdatePrinterFromKernel(printer);
        chooseKernelPaper(700, 700, !portrait);
        UpdateKernelFromPrinter(printer);
        RC_ASSERT(qAbs(kernelSize().width() - size.width()) <= 1);
        RC_ASSERT(qAbs(kernelSize().height() - size.height()) <= 1);
        RC_ASSERT(kernelPortrait() == portrait);
    }));
}

TEST_F(RoundTrip, ASecondRoundChangesNothing)
{
    EXPECT_TRUE(rc::check([this] {
        chooseKernelPaper(*rc::gen::inRange(20, 1500), *rc::gen::inRange(20, 1500), *rc::gen::arbitrary<bool>());
        UpdatePrinterFromKernel(m_printer);
        UpdateKernelFromPrinter(m_printer);
        const PaperName::Number pageSize = paperName(m_printer);
        const QSizeF size = kernelSize();
        const long index = kernelPaper();
        UpdatePrinterFromKernel(m_printer);
        UpdateKernelFromPrinter(m_printer);
        RC_ASSERT(paperName(m_printer) == pageSize);
        RC_ASSERT(kernelPaper() == index);
        RC_ASSERT(kernelSize() == size);
    }));
}

TEST_F(RoundTrip, EveryNamedPaperOfThePrinterComesBack)
{
    EXPECT_TRUE(rc::check([this] {
        const auto paperSize = static_cast<PaperName::Number>(*rc::gen::inRange(0, 30));
        const bool portrait = *rc::gen::arbitrary<bool>();
        setPortrait(m_printer, portrait);
        setPaperName(m_printer, paperSize);
        UpdateKernelFromPrinter(m_printer);
        setPortrait(m_printer, true);
        setPaperName(m_printer, PaperName::A9);
        UpdatePrinterFromKernel(m_printer);
        RC_ASSERT(paperName(m_printer) == paperSize);
        RC_ASSERT(isPortrait(m_printer) == portrait);
    }));
}

TEST_F(RoundTrip, ASheetOfTheBSeriesOfISOKeepsItsSizeThroughARealPrinter)
{
    for (const bool portrait : {true, false}) {
        chooseKernelPaper(176, 250, portrait);
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        UpdatePrinterFromKernel(printer);
        setKernelCustomPaper(10, 10);
        UpdateKernelFromPrinter(printer);
        EXPECT_EQ(176 / 25.4, kernelLength("Custom2", "Width"));
        EXPECT_EQ(250 / 25.4, kernelLength("Custom2", "Height"));
    }
}
