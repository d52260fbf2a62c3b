#include "integration/toolkit/Paper.h"

#include "integration/toolkit/qt5/CustomPage.h"

#include <QPrinter>
#include <algorithm>

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
    return static_cast<PaperName::Number>(std::min<int>(printer.pageSize(), PaperName::Newer));
}

void setPaperName(QPrinter& printer, PaperName::Number name)
{
    printer.setPageSize(static_cast<QPrinter::PageSize>(name));
}

void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters)
{
    if (!millimeters.isEmpty())
        printer.setPageSize(customPage(millimeters));
}

QSize paperSizeInMillimeters(const QPrinter& printer)
{
    // QPrinter::paperSize() turns the sheet with the orientation here.
    return printer.pageLayout().pageSize().size(QPageSize::Millimeter).toSize();
}

} // namespace velmora::sdk::integration::toolkit
