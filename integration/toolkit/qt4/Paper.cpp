#include "integration/toolkit/Paper.h"

#include <QPrinter>

namespace velmora::sdk::integration::toolkit {

static_assert(int(PaperName::A4) == QPrinter::A4 && int(PaperName::Executive) == QPrinter::Executive &&
                  int(PaperName::A9) == QPrinter::A9 && int(PaperName::B10) == QPrinter::B10 &&
                  int(PaperName::Custom) == QPrinter::Custom,
              "The toolkit counts its papers as the seam does.");

bool isPortrait(const QPrinter& printer)
{
    return printer.orientation() == QPrinter::Portrait;
}

void setPortrait(QPrinter& printer, bool portrait)
{
    printer.setOrientation(portrait ? QPrinter::Portrait : QPrinter::Landscape);
}

PaperName::Number paperName(const QPrinter& printer)
{
    return static_cast<PaperName::Number>(printer.pageSize());
}

void setPaperName(QPrinter& printer, PaperName::Number name)
{
    printer.setPageSize(static_cast<QPrinter::PaperSize>(name));
}

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

} // namespace velmora::sdk::integration::toolkit
