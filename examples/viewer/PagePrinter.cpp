#include "PagePrinter.h"

#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"

#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <cstring>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int RowsPerBand = 128;

/// Collects the rows of the page into bands and paints these one below the other, so that no more
/// than one has to be kept.
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
        const int place = row % RowsPerBand;
        if (place == 0)
            m_band = QImage(width, std::min(RowsPerBand, height - row), QImage::Format_RGB888);
        if (m_band.isNull())
            return false;
        std::memcpy(m_band.scanLine(place), rgb, 3 * static_cast<std::size_t>(width));
        if (place + 1 == m_band.height())
            paint(row + 1 - m_band.height());
        return true;
    }

    // Rounded to whole dots, or a seam would show between two bands.
    void paint(int firstRow)
    {
        const int top = qRound(firstRow * m_scale);
        const int bottom = qRound((firstRow + m_band.height()) * m_scale);
        m_painter.drawImage(QRect(0, top, qRound(m_band.width() * m_scale), bottom - top), m_band);
    }

    QPainter& m_painter;
    double m_scale;
    QImage m_band;
};

} // namespace

bool printPage(QPrinter& printer, int finest)
{
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double resolution = std::min(printer.resolution(), finest);
    Bands bands(painter, printer.resolution() / resolution);
    const bool drawn = VelUtilRenderPage(resolution, ImageRenderingStrategy_Software, &Bands::takeRow,
                                         reinterpret_cast<long>(&bands)) != 0;
    if (!drawn)
        printer.abort();
    return painter.end() && drawn;
}

} // namespace viewer
