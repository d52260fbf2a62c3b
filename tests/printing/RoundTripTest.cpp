#include "integration/printing/PrintingUtil.h"
#include "tests/printing/PrintingTest.h"

#include <QPrinter>
#include <rapidcheck.h>

using namespace velmora::test;
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

TEST_F(RoundTrip, ASecondRoundChangesNothing)
{
    EXPECT_TRUE(rc::check([this] {
        chooseKernelPaper(*rc::gen::inRange(20, 1500), *rc::gen::inRange(20, 1500), *rc::gen::arbitrary<bool>());
        UpdatePrinterFromKernel(m_printer);
        UpdateKernelFromPrinter(m_printer);
        const QPrinter::PaperSize pageSize = m_printer.pageSize();
        const QSizeF size = kernelSize();
        const long index = kernelPaper();
        UpdatePrinterFromKernel(m_printer);
        UpdateKernelFromPrinter(m_printer);
        RC_ASSERT(m_printer.pageSize() == pageSize);
        RC_ASSERT(kernelPaper() == index);
        RC_ASSERT(kernelSize() == size);
    }));
}

TEST_F(RoundTrip, EveryNamedPaperOfThePrinterComesBack)
{
    EXPECT_TRUE(rc::check([this] {
        const auto paperSize = static_cast<QPrinter::PaperSize>(*rc::gen::inRange(0, 30));
        const auto orientation = *rc::gen::element(QPrinter::Portrait, QPrinter::Landscape);
        m_printer.setOrientation(orientation);
        m_printer.setPageSize(paperSize);
        UpdateKernelFromPrinter(m_printer);
        m_printer.setOrientation(QPrinter::Portrait);
        m_printer.setPageSize(QPrinter::A9);
        UpdatePrinterFromKernel(m_printer);
        RC_ASSERT(m_printer.pageSize() == paperSize);
        RC_ASSERT(m_printer.orientation() == orientation);
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
