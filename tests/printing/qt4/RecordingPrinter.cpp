#include "tests/printing/RecordingPrinter.h"
#include "testing/EngineProbe.h"

#include <QSizeF>

namespace velmora::test {
namespace {

/// The toolkit hands a custom paper on in the printer's dots.
std::string describeCustom(const QSizeF& dots, int dotsPerInch)
{
    const QSize size = (dots * 25.4 / dotsPerInch).toSize();
    return "setCustomPaper " + std::to_string(size.width()) + "x" + std::to_string(size.height());
}

} // namespace

bool RecordingPrintEngine::setPageSizeProperty(PrintEnginePropertyKey key, const QVariant& value)
{
    if (key != PPK_PaperSize && key != PPK_CustomPaperSize)
        return false;
    m_properties[key] = value;
    if (key == PPK_PaperSize) {
        velmora::testing::EngineProbe::note("setPageSize " + std::to_string(value.toInt()));
    } else {
        velmora::testing::EngineProbe::note(describeCustom(value.toSizeF(), 72));
        m_properties[PPK_PaperSize] = static_cast<int>(QPrinter::Custom);
    }
    return true;
}

QVariant RecordingPrintEngine::pageSizeProperty(PrintEnginePropertyKey key) const
{
    return key == PPK_Resolution ? QVariant(72) : QVariant();
}

std::vector<std::string> callsOfCustomPageSize()
{
    return {};
}

void setCustomPaper(QPrinter& printer, double width, double height)
{
    printer.setPaperSize(QSizeF(width, height), QPrinter::Millimeter);
}

} // namespace velmora::test
