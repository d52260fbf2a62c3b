#pragma once

class QPrinter;
class QSize;

namespace velmora::sdk::integration::toolkit {

/// The papers that every toolkit knows by name, with the numbers that the engine's settings and the first
/// toolkit have for them.
struct PaperName {
    enum Number {
        A4 = 0,
        B5 = 1,
        Letter = 2,
        Legal = 3,
        Executive = 4,
        A0 = 5,
        A1 = 6,
        A2 = 7,
        A3 = 8,
        A5 = 9,
        A6 = 10,
        A7 = 11,
        A8 = 12,
        A9 = 13,
        B0 = 14,
        B1 = 15,
        B10 = 16,
        B2 = 17,
        B3 = 18,
        B4 = 19,
        B6 = 20,
        B7 = 21,
        B8 = 22,
        B9 = 23,
        C5E = 24,
        Comm10E = 25,
        DLE = 26,
        Folio = 27,
        Ledger = 28,
        Tabloid = 29,
        Custom = 30, ///< none of the names: known by its size
        Newer = 31   ///< a name that only this toolkit has
    };
};

/// @{
/// Whether the sheet stands upright.
bool isPortrait(const QPrinter& printer);
void setPortrait(QPrinter& printer, bool portrait);
/// @}

PaperName::Number paperName(const QPrinter& printer);
/// With Custom the toolkit is told no more than that name, from which no real printer gets a paper: see
/// makeCustomPaperReal(). Not Newer.
void setPaperName(QPrinter& printer, PaperName::Number name);

/// Makes an upright sheet of this size the printer's paper and its page size "Custom"; the printer
/// turns it as its orientation says. A size without extent is not set. The toolkit's own way of
/// naming a custom paper, its page size and a property of the print engine, reaches no real printer
/// on any toolkit.
void makeCustomPaperReal(QPrinter& printer, const QSize& millimeters);

/// The size of the printer's upright sheet in whole millimetres, whatever its orientation.
QSize paperSizeInMillimeters(const QPrinter& printer);

} // namespace velmora::sdk::integration::toolkit
