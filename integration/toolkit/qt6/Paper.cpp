#include "integration/toolkit/Paper.h"

#include "integration/toolkit/qt5/CustomPage.h"

#include <QPrinter>
#include <algorithm>
#include <iterator>

namespace velmora::sdk::integration::toolkit {

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
static_assert(std::size(Pages) == PaperName::Newer, "Each paper has a page of the toolkit.");

} // namespace

bool isPortrait(const QPrinter& printer)
{
    return printer.pageLayout().orientation() == QPageLayout::Portrait;
}

void setPortrait(QPrinter& printer, bool portrait)
{
    printer.setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
}

PaperName::Number paperName(const QPrinter& printer)
{
    const auto page = std::find(std::begin(Pages), std::end(Pages), printer.pageLayout().pageSize().id());
    return static_cast<PaperName::Number>(page - std::begin(Pages));
}

void setPaperName(QPrinter& printer, PaperName::Number name)
{
    printer.setPageSize(QPageSize(Pages[name]));
}

void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters)
{
    if (!millimeters.isEmpty())
        printer.setPageSize(customPage(millimeters));
}

QSize paperSizeInMillimeters(const QPrinter& printer)
{
    return printer.pageLayout().pageSize().size(QPageSize::Millimeter).toSize();
}

} // namespace velmora::sdk::integration::toolkit
