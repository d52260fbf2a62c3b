#pragma once

#include "tests/printing/PdfFacts.h"

#include <QImage>
#include <QRect>
#include <QString>

namespace velmora::test {

// The first page of a PDF file as other programs see it (poppler-utils).

/// With whole pixels, as a printer has them.
QImage pagePicture(const QString& pdf, int dotsPerInch = 72);
/// With smooth edges, as a window shows it.
QImage pageOnScreen(const QString& pdf, int dotsPerInch);
/// How the images of the page are compressed, without repetitions, and their dots to the inch:
/// "image 300", "jpeg 300".
QString pageImages(const QString& pdf);

/// What the page shows beside white paper.
QRect contents(const QImage& page);
/// The colour bar of a surface, from its highest colour to its lowest.
QRect colourBar(const QImage& page);

/// The page shows a surface as it should be: upright, whole, and nothing on the margins that no
/// printer prints on.
void expectUprightSurface(const QImage& page, int dotsPerInch = 72);

} // namespace velmora::test
