#include "tests/printing/RecordingPrinter.h"
#include "testing/EngineProbe.h"

#include <QPageLayout>
#include <QPageSize>

namespace velmora::test {
namespace {

std::string describe(const QPageSize& page)
{
    if (page.id() != QPageSize::Custom || !page.isValid())
        return "setPageSize " + std::to_string(static_cast<int>(page.id()));
    const QSize size = page.size(QPageSize::Millimeter).toSize();
    return "setCustomPaper " + std::to_string(size.width()) + "x" + std::to_string(size.height());
}

} // namespace

bool RecordingPrintEngine::setPageSizeProperty(PrintEnginePropertyKey key, const QVariant& value)
{
    if (key != PPK_QPageSize)
        return false;
    const QPageSize page = value.value<QPageSize>();
    velmora::testing::EngineProbe::note(describe(page));
    if (page.isValid()) // as the real print engines do, which keep their page otherwise
        m_properties[key] = value;
    return true;
}

QVariant RecordingPrintEngine::pageSizeProperty(PrintEnginePropertyKey key) const
{
    if (key != PPK_QPageLayout)
        return QVariant();
    const QVariant kept = m_properties.value(PPK_QPageSize);
    const QPageSize page = kept.isValid() ? kept.value<QPageSize>() : QPageSize(QPageSize::A4);
    const bool lies = m_properties.value(PPK_Orientation).toInt() == QPrinter::Landscape;
    return QVariant::fromValue(
        QPageLayout(page, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
}

std::vector<std::string> callsOfCustomPageSize()
{
    return {"setPageSize 30"};
}

void setCustomPaper(QPrinter& printer, double width, double height)
{
    printer.setPaperSize(QSizeF(width, height), QPrinter::Millimeter);
}

} // namespace velmora::test
