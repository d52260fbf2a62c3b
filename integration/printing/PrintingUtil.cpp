#include "integration/printing/PrintingUtil.h"

#include "base/AppLock.h"
#include "engine/VelUtil.h"
#include "integration/printing/BasicPaperSizes.h"
#include "integration/printing/PaperLength.h"
#include "integration/printing/PaperStyle.h"
#include "integration/printing/PrintingUtilIntern.h"
#include "integration/toolkit/Paper.h"

#include <QPrintEngine>
#include <QPrinter>
#include <QSize>
#include <QVariant>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace velmora::sdk::integration {
namespace {

/// Under this key the print engine has the size of a custom paper, as a QSize in whole millimetres.
constexpr auto CustomPaperProperty = static_cast<QPrintEngine::PrintEnginePropertyKey>(11);

PaperMillimeters millimetersOf(const BasicPaperSize& paper)
{
    return {paper.width, paper.height};
}

PaperMillimeters millimetersOf(const QSize& size)
{
    return {size.width(), size.height()};
}

// ---- from the engine

int currentPaperOrFirst()
{
    const std::optional<int> index = readKernelPaperIndex();
    if (!index && VelUtilInternalIsPrintDebugOn())
        std::fprintf(stderr, "The engine's current paper cannot be read; taking \"%s\" for the printer.\n",
                     kernelPaperName(0));
    return index.value_or(0);
}

/// The size of the engine's current paper.
PaperMillimeters readKernelPaper()
{
    const bool portraitBefore = readKernelOrientPortrait();
    const int index = currentPaperOrFirst();
    double width = readKernelPaperLength(index, "Width");
    double height = readKernelPaperLength(index, "Height");
    // The margins are fetched with the size they belong to; the printer works on the whole sheet
    // and is not told.
    for (const char* offset :
         {"LeftHardClipOffset", "RightHardClipOffset", "BottomHardClipOffset", "TopHardClipOffset"})
        readKernelPaperLength(index, offset);
    // Deliberately two steps: a sheet is exchanged only when the orientation changed between the
    // two reads.
    if (!readKernelOrientPortrait())
        std::swap(width, height);
    if (!portraitBefore)
        std::swap(width, height);
    return {wholeMillimetersFromInches(width), wholeMillimetersFromInches(height)};
}

void setPrinterPaper(QPrinter& printer, const PaperMillimeters& wanted)
{
    const auto fits = [&wanted](const BasicPaperSize& paper) { return isSamePaper(millimetersOf(paper), wanted); };
    const auto row = std::find_if(std::begin(BasicPaperSizes), std::end(BasicPaperSizes), fits);
    if (row != std::end(BasicPaperSizes)) {
        toolkit::setPaperName(printer, row->name);
        return;
    }
    const QSize size(static_cast<int>(wanted.width), static_cast<int>(wanted.height));
    toolkit::setPaperName(printer, toolkit::PaperName::Custom);
    printer.printEngine()->setProperty(CustomPaperProperty, size);
    toolkit::makeCustomPaperReal(printer, size);
}

// ---- from the printer

/// The print engine's property first: it is what the other direction set. Not every print engine
/// keeps it.
PaperMillimeters readCustomPrinterPaper(const QPrinter& printer)
{
    // Asked as part of the sequence; a custom size means the upright sheet in either orientation.
    readKernelOrientPortrait();
    const QSize size = printer.printEngine()->property(CustomPaperProperty).toSize();
    return millimetersOf(size.isValid() ? size : toolkit::paperSizeInMillimeters(printer));
}

PaperMillimeters readPrinterPaper(const QPrinter& printer)
{
    const toolkit::PaperName::Number name = toolkit::paperName(printer);
    if (name == toolkit::PaperName::Custom)
        return readCustomPrinterPaper(printer);
    const auto row = std::find_if(std::begin(BasicPaperSizes), std::end(BasicPaperSizes),
                                  [name](const BasicPaperSize& paper) { return paper.name == name; });
    // Newer toolkits know papers by name that the table does not have; those are what they measure.
    return row != std::end(BasicPaperSizes) ? millimetersOf(*row)
                                            : millimetersOf(toolkit::paperSizeInMillimeters(printer));
}

PaperMillimeters readKernelPaperDefinition(int index)
{
    const double width = readKernelPaperLength(index, "Width");
    const double height = readKernelPaperLength(index, "Height");
    return {wholeMillimetersFromInches(width), wholeMillimetersFromInches(height)};
}

} // namespace

bool isSamePaper(const PaperMillimeters& a, const PaperMillimeters& b)
{
    return qAbs(a.width - b.width) <= 1 && qAbs(a.height - b.height) <= 1;
}

bool SetKernelOrientationFromPrinter(QPrinter& printer)
{
    return writeKernelOrientPortrait(toolkit::isPortrait(printer)) == 0;
}

bool SetKernelPageSizeFromPrinter(QPrinter& printer)
{
    const PaperMillimeters wanted = readPrinterPaper(printer);
    for (int index = 0; index < KernelPaperCount; ++index) {
        if (isSamePaper(readKernelPaperDefinition(index), wanted)) {
            writeKernelPaperIndex(index);
            // Deliberately whatever the engine answered: one of its own papers always refits the
            // frames.
            return true;
        }
    }
    const bool widthTaken = writeKernelCustomPaperLength("Width", inchesFromWholeMillimeters(wanted.width)) == 0;
    const bool heightTaken = writeKernelCustomPaperLength("Height", inchesFromWholeMillimeters(wanted.height)) == 0;
    const bool indexTaken = writeKernelPaperIndex(KernelCustomPaper) == 0;
    return widthTaken || heightTaken || indexTaken;
}

void UpdatePrinterFromKernel(QPrinter& printer)
{
    toolkit::setPortrait(printer, readKernelOrientPortrait());
    printer.setFullPage(true);
    setPrinterPaper(printer, readKernelPaper());
}

void UpdateKernelFromPrinter(QPrinter& printer)
{
    const AppLock lock(AppLock::ImplicitMacroRecording::Off);
    const bool orientationChanged = SetKernelOrientationFromPrinter(printer);
    const bool sizeChanged = SetKernelPageSizeFromPrinter(printer);
    if (orientationChanged || sizeChanged) {
        VelUtilFrameFitAllToPaper();
        VelUtilWorkViewFitPaper();
    }
}

} // namespace velmora::sdk::integration
