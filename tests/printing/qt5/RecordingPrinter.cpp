#include "tests/printing/RecordingPrinter.h"
#include "testing/EngineProbe.h"

#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <iterator>

namespace velmora::test {
namespace {

/// By the number of the paper.
constexpr QPageSize::PageSizeId Pages[] = {
    QPageSize::A4,      QPageSize::B5,  QPageSize::Letter, QPageSize::Legal,  QPageSize::Executive,
    QPageSize::A0,      QPageSize::A1,  QPageSize::A2,     QPageSize::A3,     QPageSize::A5,
    QPageSize::A6,      QPageSize::A7,  QPageSize::A8,     QPageSize::A9,     QPageSize::B0,
    QPageSize::B1,      QPageSize::B10, QPageSize::B2,     QPageSize::B3,     QPageSize::B4,
    QPageSize::B6,      QPageSize::B7,  QPageSize::B8,     QPageSize::B9,     QPageSize::C5E,
    QPageSize::Comm10E, QPageSize::DLE, QPageSize::Folio,  QPageSize::Ledger, QPageSize::Tabloid,
    QPageSize::Custom,
};

std::string describe(const QPageSize& page)
{
    if (page.id() != QPageSize::Custom || !page.isValid())
        return "setPageSize " + std::to_string(std::find(std::begin(Pages), std::end(Pages), page.id()) - Pages);
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
    const bool lies = m_properties.value(PPK_Orientation).toInt() == QPageLayout::Landscape;
    return QVariant::fromValue(
        QPageLayout(page, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
}

std::vector<std::string> callsOfCustomPageSize()
{
    return {"setPageSize 30"};
}

void setCustomPaper(QPrinter& printer, double width, double height)
{
    printer.setPageSize(QPageSize(QSizeF(width, height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
}

} // namespace velmora::test
