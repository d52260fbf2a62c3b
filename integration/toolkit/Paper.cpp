#include "integration/toolkit/Paper.h"

#include <QPrinter>

#if QT_VERSION >= 0x050000
#include <QPageSize>
#endif

namespace velmora::sdk::integration::toolkit {

#if QT_VERSION >= 0x050000

namespace {

/// Enough to change the size in points by one, and too little to change it in millimetres.
constexpr qreal OnePointInMillimeters = 0.36;

/// Qt 5 tells papers apart by their size in whole points and gives one that it knows its name. The
/// names do not stand for the same sizes everywhere (its B sizes are ISO's), so a paper that was
/// asked for by size must stay a size and not come back as a name.
QPageSize customPage(const QSizeF& millimeters)
{
    const QPageSize page(millimeters, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    if (page.id() == QPageSize::Custom)
        return page;
    return QPageSize(millimeters + QSizeF(OnePointInMillimeters, 0), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

} // namespace

void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters)
{
    if (!millimeters.isEmpty())
        printer.setPageSize(customPage(millimeters));
}

QSize paperSizeInMillimeters(const QPrinter& printer)
{
    // QPrinter::paperSize() turns the sheet with the orientation here, and does not on Qt 4.
    return printer.pageLayout().pageSize().size(QPageSize::Millimeter).toSize();
}

#else

void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters)
{
    if (!millimeters.isEmpty())
        printer.setPaperSize(QSizeF(millimeters), QPrinter::Millimeter);
}

QSize paperSizeInMillimeters(const QPrinter& printer)
{
    // A custom paper is told upright, one with a name as it lies.
    QSize size = printer.paperSize(QPrinter::Millimeter).toSize();
    if (printer.paperSize() != QPrinter::Custom && printer.orientation() == QPrinter::Landscape)
        size.transpose();
    return size;
}

#endif

} // namespace velmora::sdk::integration::toolkit
