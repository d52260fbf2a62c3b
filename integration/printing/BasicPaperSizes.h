#pragma once

#include <QPrinter>

namespace velmora::sdk::integration {

/// A paper of the toolkit, in millimetres.
struct BasicPaperSize {
    qint32 paperSize; ///< a QPrinter::PaperSize
    qint32 width;
    qint32 height;
};

/// The toolkit's papers. Searches take the first row that fits. The sheets stand upright, apart
/// from Ledger, which lies: that tells it from Tabloid.
///
/// The B rows are deliberately the sheets of JIS, not those of ISO that the toolkit has under these
/// names. It is the table that says so: the engine has no B paper of its own.
constexpr BasicPaperSize BasicPaperSizes[] = {
    {QPrinter::A0, 841, 1189},       {QPrinter::A1, 594, 841},      {QPrinter::A2, 420, 594},
    {QPrinter::A3, 297, 420},        {QPrinter::A4, 210, 297},      {QPrinter::A5, 148, 210},
    {QPrinter::A6, 105, 148},        {QPrinter::A7, 74, 105},       {QPrinter::A8, 52, 74},
    {QPrinter::A9, 37, 52},          {QPrinter::B0, 1030, 1456},    {QPrinter::B1, 728, 1030},
    {QPrinter::B10, 32, 45},         {QPrinter::B2, 515, 728},      {QPrinter::B3, 364, 515},
    {QPrinter::B4, 257, 364},        {QPrinter::B5, 182, 257},      {QPrinter::B6, 128, 182},
    {QPrinter::B7, 91, 128},         {QPrinter::B8, 64, 91},        {QPrinter::B9, 45, 64},
    {QPrinter::C5E, 163, 229},       {QPrinter::Comm10E, 105, 241}, {QPrinter::DLE, 110, 220},
    {QPrinter::Executive, 191, 254}, {QPrinter::Folio, 210, 330},   {QPrinter::Ledger, 432, 279},
    {QPrinter::Legal, 216, 356},     {QPrinter::Letter, 216, 279},  {QPrinter::Tabloid, 279, 432},
};

} // namespace velmora::sdk::integration
