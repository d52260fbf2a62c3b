#pragma once

class QPrinter;
class QSize;

namespace velmora::sdk::integration::toolkit {

/// Makes an upright sheet of this size the printer's paper and its page size "Custom"; the printer
/// turns it as its orientation says. A size without extent is not set. The toolkit's own way of
/// naming a custom paper, its page size and a property of the print engine, reaches no real printer
/// on either toolkit.
void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters);

/// The size of the printer's upright sheet in whole millimetres, whatever its orientation.
QSize paperSizeInMillimeters(const QPrinter& printer);

} // namespace velmora::sdk::integration::toolkit
