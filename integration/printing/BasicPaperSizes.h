#pragma once

#include "integration/toolkit/Paper.h"

#include <QtGlobal>

namespace velmora::sdk::integration {

using toolkit::PaperName;

/// A paper of the toolkit; width and height in millimetres.
struct BasicPaperSize {
    PaperName::Number name;
    qint32 width;
    qint32 height;
};

/// The toolkit's papers. Searches take the first row that fits. The sheets stand upright, apart
/// from Ledger, which lies: that tells it from Tabloid.
///
/// The B rows are deliberately the sheets of JIS, not those of ISO that the toolkit has under these
/// names. It is the table that says so: the engine has no B paper of its own.
constexpr BasicPaperSize BasicPaperSizes[] = {
    {PaperName::A0, 841, 1189},       {PaperName::A1, 594, 841},      {PaperName::A2, 420, 594},
    {PaperName::A3, 297, 420},        {PaperName::A4, 210, 297},      {PaperName::A5, 148, 210},
    {PaperName::A6, 105, 148},        {PaperName::A7, 74, 105},       {PaperName::A8, 52, 74},
    {PaperName::A9, 37, 52},          {PaperName::B0, 1030, 1456},    {PaperName::B1, 728, 1030},
    {PaperName::B10, 32, 45},         {PaperName::B2, 515, 728},      {PaperName::B3, 364, 515},
    {PaperName::B4, 257, 364},        {PaperName::B5, 182, 257},      {PaperName::B6, 128, 182},
    {PaperName::B7, 91, 128},         {PaperName::B8, 64, 91},        {PaperName::B9, 45, 64},
    {PaperName::C5E, 163, 229},       {PaperName::Comm10E, 105, 241}, {PaperName::DLE, 110, 220},
    {PaperName::Executive, 191, 254}, {PaperName::Folio, 210, 330},   {PaperName::Ledger, 432, 279},
    {PaperName::Legal, 216, 356},     {PaperName::Letter, 216, 279},  {PaperName::Tabloid, 279, 432},
};

} // namespace velmora::sdk::integration
