#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PrintingUtil.h"
#include "integration/toolkit/Paper.h"
#include "tests/printing/PdfFacts.h"
#include "tests/printing/PrintingTest.h"

#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryFile>

using namespace velmora::test;
using velmora::sdk::integration::BasicPaperSize;
using velmora::sdk::integration::BasicPaperSizes;
using velmora::sdk::integration::UpdatePrinterFromKernel;
using velmora::sdk::integration::toolkit::paperSizeInMillimeters;

namespace {

/// A millimetre, which the toolkit's C5 envelope is narrower than the table's, and some of the page's
/// whole points.
constexpr double Tolerance = 1.1;

/// Prints a page with a cross on it.
void print(QPrinter& printer, const QString& fileName)
{
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    UpdatePrinterFromKernel(printer);
    QPainter painter;
    ASSERT_TRUE(painter.begin(&printer));
    const QRect page = painter.viewport();
    painter.drawLine(page.topLeft(), page.bottomRight());
    painter.drawLine(page.topRight(), page.bottomLeft());
    ASSERT_TRUE(painter.end());
}

QSizeF printedPage()
{
    QTemporaryFile file(QDir::tempPath() + "/velmora_paper_XXXXXX.pdf");
    EXPECT_TRUE(file.open());
    QPrinter printer;
    print(printer, file.fileName());
    return pageSizeOfPdf(file.fileName());
}

/// What the page must measure when the engine's current paper has this upright size.
void expectPage(double width, double height)
{
    for (const bool portrait : {true, false}) {
        setKernelPortrait(portrait);
        const QSizeF page = printedPage();
        EXPECT_NEAR(portrait ? width : height, page.width(), Tolerance) << width << " x " << height;
        EXPECT_NEAR(portrait ? height : width, page.height(), Tolerance) << width << " x " << height;
    }
}

/// The B series, down to its smallest sheet, where a millimetre is all that is left between JIS and ISO.
bool isOfTheBSeries(int paperSize)
{
    const bool named = paperSize == PaperName::B5 || (paperSize >= PaperName::B0 && paperSize <= PaperName::B9);
    return named && paperSize != PaperName::B10;
}

using PdfPaper = PrintingTest;

} // namespace

TEST_F(PdfPaper, EveryPaperOfTheEngineIsTheSizeOfThePrintedPage)
{
    for (const KernelPaperSize& paper : kernelPapers()) {
        setKernelPaper(&paper - kernelPapers().data());
        expectPage(paper.width, paper.height);
    }
}

TEST_F(PdfPaper, EverySheetOfTheTableButTheBSeriesIsTheSizeOfThePrintedPage)
{
    for (const BasicPaperSize& row : BasicPaperSizes) {
        if (isOfTheBSeries(row.name))
            continue;
        setKernelCustomPaper(row.width / 25.4, row.height / 25.4);
        expectPage(row.width, row.height);
    }
}

TEST_F(PdfPaper, APaperWithoutANameIsTheSizeOfThePrintedPage)
{
    const double sizes[][2] = {{100, 150}, {333, 77}, {600, 900}, {176, 250}, {212, 297}};
    for (const auto& size : sizes) {
        setKernelCustomPaper(size[0] / 25.4, size[1] / 25.4);
        expectPage(size[0], size[1]);
    }
}

TEST_F(PdfPaper, OnlyTheSheetsOfTheBSeriesAreOthersThanTheToolkitsOwn)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    for (const BasicPaperSize& row : BasicPaperSizes) {
        setPaperName(printer, row.name);
        const QSize own = paperSizeInMillimeters(printer);
        const bool isSame = qAbs(own.width() - row.width) <= 1 && qAbs(own.height() - row.height) <= 1;
        EXPECT_EQ(!isOfTheBSeries(row.name), isSame) << row.name;
    }
}

TEST_F(PdfPaper, ASheetOfTheBSeriesOfJISIsDeliberatelyPrintedAsItsNamesakeOfISO)
{
    // The engine's sheet has the size of a B row, so the printer is told the row's name; the toolkit
    // has ISO's sheet under that name.
    setKernelCustomPaper(182 / 25.4, 257 / 25.4);
    expectPage(176, 250);
}
