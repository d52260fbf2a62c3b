#include "PagePrinter.h"

#include "PrintedFile.h"
#include "Toolkit.h"
#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"

#include <QApplication>
#include <QFileInfo>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>
#include <QRectF>
#include <algorithm>
#include <cstring>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int RowsPerBand = 256;
constexpr int OverlappingRows = 16;
constexpr double EdgeDots = 0.001;
constexpr double SameSheetMillimeters = 2;
constexpr double MillimetersPerInch = 25.4;

/// Collects the rows of the page into bands and paints these one below the other, so that no more
/// than two have to be kept. A band begins with the end of the one above: where the edge of an image
/// falls between two pixels of a screen, many programs would let the white paper through.
class Bands {
public:
    /// `scale`: how many dots of the painter are as wide as one of the rows.
    Bands(QPainter& painter, double scale) : m_painter(painter), m_scale(scale) {}

    static int takeRow(int row, int width, int height, const unsigned char* rgb, long clientData)
    {
        return reinterpret_cast<Bands*>(clientData)->take(row, width, height, rgb) ? 1 : 0;
    }

private:
    bool take(int row, int width, int height, const unsigned char* rgb)
    {
        if (row == 0)
            fit(width, height);
        if (m_taken == m_band.height() && !startBand(row, width, height))
            return false;
        std::memcpy(m_band.scanLine(m_taken++), rgb, 3 * static_cast<std::size_t>(width));
        if (m_taken == m_band.height())
            paint();
        return true;
    }

    // A sheet of the B series comes as the toolkit's, which is smaller than the engine's. Less than
    // the papers that count as the same can differ is lost from the margins only.
    void fit(int width, int height)
    {
        const QSizeF sheet = m_painter.window().size();
        const double same = SameSheetMillimeters * m_painter.device()->logicalDpiX() / MillimetersPerInch;
        if (width * m_scale - sheet.width() > same || height * m_scale - sheet.height() > same)
            m_scale = std::min(sheet.width() / width, sheet.height() / height);
    }

    bool startBand(int row, int width, int height)
    {
        const QImage above = m_band;
        m_taken = std::min(row, OverlappingRows);
        m_firstRow = row - m_taken;
        m_band = QImage(width, std::min(RowsPerBand, height - m_firstRow), QImage::Format_RGB888);
        if (m_band.isNull())
            return false;
        for (int i = 0; i < m_taken; ++i)
            std::memcpy(m_band.scanLine(i), above.constScanLine(above.height() - m_taken + i),
                        static_cast<std::size_t>(above.bytesPerLine()));
        return true;
    }

    // Rounded to whole dots, or the bands would not lie exactly over each other. Many programs take
    // an image that ends just where a dot does for one that reaches into the next, and stretch it.
    void paint()
    {
        const int top = qRound(m_firstRow * m_scale);
        const int bottom = qRound((m_firstRow + m_band.height()) * m_scale);
        const QRectF whole(0, top, qRound(m_band.width() * m_scale), bottom - top);
        m_painter.drawImage(whole.adjusted(EdgeDots, EdgeDots, -EdgeDots, -EdgeDots), m_band);
    }

    QPainter& m_painter;
    double m_scale;
    QImage m_band;
    int m_firstRow = 0;
    int m_taken = 0;
};

} // namespace

bool printPage(QPrinter& printer, int finest)
{
    printer.setFullPage(true);
    PrintedFile file(printer);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    keepImagesExact(painter);
    const double resolution = std::min(printer.resolution(), finest);
    Bands bands(painter, printer.resolution() / resolution);
    const bool drawn = VelUtilRenderPage(resolution, ImageRenderingStrategy_Software, &Bands::takeRow,
                                         reinterpret_cast<long>(&bands)) != 0;
    // A preview shows what there is: aborted, it would go on to show pages that are deleted.
    if (!drawn && printer.paintEngine()->type() != QPaintEngine::Picture)
        printer.abort();
    return painter.end() && drawn && file.keep();
}

void nameDocument(QPrinter& printer, const QString& dataFile)
{
    printer.setDocName(QFileInfo(dataFile).fileName());
    printer.setCreator(QApplication::applicationName() + QLatin1Char(' ') + QApplication::applicationVersion());
}

} // namespace viewer
