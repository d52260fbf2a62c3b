#pragma once

#include <QSizeF>
#include <QString>

namespace velmora::test {

/// The size of the pages of a PDF file in millimetres, as pdfinfo tells it. The test fails where it tells none.
QSizeF pageSizeOfPdf(const QString& fileName);

/// What the file's own description says of "Title", "Creator" and the like.
QString descriptionInPdf(const QString& fileName, const char* what);

} // namespace velmora::test
