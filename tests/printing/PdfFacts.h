#pragma once

#include <QSizeF>
#include <QString>

namespace velmora::test {

/// The size of the pages of a PDF file in millimetres, as pdfinfo tells it. The test fails where it tells none.
QSizeF pageSizeOfPdf(const QString& fileName);

} // namespace velmora::test
