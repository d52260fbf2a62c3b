#include "engine/export/PictureRows.h"

#include "engine/export/BoxFilter.h"
#include "engine/export/ExportFailure.h"
#include "engine/export/Matte.h"
#include "engine/export/Progress.h"
#include "engine/export/RowSink.h"
#include "engine/export/ServiceImage.h"
#include "engine/page/ExportRequest.h"

#include <algorithm>
#include <utility>

namespace velmora::engine {
namespace {

// How the time for a band and for a tile is shared out, roughly.
constexpr double TilesOfBand = 0.85;  ///< the rest is writing
constexpr double DrawingOfTile = 0.8; ///< the rest is reading back

std::size_t rgbBytes(int pixels)
{
    return static_cast<std::size_t>(pixels) * 3;
}

/// The colour planes of a row of an image.
class Planes {
public:
    explicit Planes(int width) : m_width(width), m_bytes(rgbBytes(width)) {}
    unsigned char* red() { return m_bytes.data(); }
    unsigned char* green() { return m_bytes.data() + m_width; }
    unsigned char* blue() { return m_bytes.data() + 2 * static_cast<std::ptrdiff_t>(m_width); }

    void interleaveInto(unsigned char* rgb)
    {
        for (std::ptrdiff_t x = 0; x < m_width; ++x) {
            rgb[3 * x] = red()[x];
            rgb[3 * x + 1] = green()[x];
            rgb[3 * x + 2] = blue()[x];
        }
    }

private:
    int m_width;
    std::vector<unsigned char> m_bytes;
};

} // namespace

PictureRows::PictureRows(const PictureRequest& request, std::string writing)
    : m_request(request), m_writing(std::move(writing)), m_tileSize(request)
{}

PictureRows::~PictureRows() = default;

void PictureRows::sendTo(RowSink& sink)
{
    int row = 0;
    while (row < m_request.height) {
        const int rows = drawBand(row);
        writeBand(row, rows, sink);
        row += rows;
    }
}

int PictureRows::drawBand(int firstRow)
{
    std::string firstRefusal;
    for (;;) {
        try {
            const int rows = std::min(m_tileSize.rows(), m_request.height - firstRow);
            drawTiles(firstRow, rows);
            return rows;
        } catch (const ImageRefused& refusal) {
            m_image.reset();
            // The later ones speak of sizes that nobody asked for.
            if (firstRefusal.empty())
                firstRefusal = refusal.what();
            if (!m_tileSize.halve())
                throw ExportFailure(firstRefusal);
        }
    }
}

void PictureRows::drawTiles(int firstRow, int rows)
{
    m_band.resize(rgbBytes(m_request.width) * static_cast<std::size_t>(rows));
    if (m_request.transparent)
        m_bandOnBlack.resize(m_band.size());
    const int fullWidth = m_request.drawnWidth();
    for (int x = 0; x < fullWidth; x += m_tileSize.width()) {
        const Tile tile{x, firstRow * m_request.supersample, std::min(m_tileSize.width(), fullWidth - x),
                        rows * m_request.supersample};
        const double part = TilesOfBand * (x + tile.width) / fullWidth;
        drawTile(tile, (firstRow + rows * part) / m_request.height);
    }
}

void PictureRows::drawTile(const Tile& tile, double done)
{
    if (m_request.transparent)
        drawTileOn(true, tile, (m_done + std::max(done, m_done)) / 2);
    drawTileOn(false, tile, done);
}

void PictureRows::drawTileOn(bool black, const Tile& tile, double done)
{
    requireSameView();
    ServiceImage& image = imageOf(tile.width, tile.height);
    const double drawn = m_done + (std::max(done, m_done) - m_done) * DrawingOfTile;
    ExportRequest part = partOfPicture(tile, drawn);
    part.onBlack = black;
    const ExportRequestScope scope(part);
    image.draw(m_request.region);
    m_done = drawn;
    readBack(image, tile, done, black ? m_bandOnBlack : m_band);
}

// Making an image takes a context and memory for all its pixels, so that the tiles share one. Only one may
// live at a time.
ServiceImage& PictureRows::imageOf(int width, int height)
{
    if (!m_image || m_image->width() != width || m_image->height() != height) {
        m_image.reset();
        m_image = std::make_unique<ServiceImage>(width, height, m_request.strategy);
    }
    return *m_image;
}

ExportRequest PictureRows::partOfPicture(const Tile& tile, double drawn) const
{
    ExportRequest request;
    request.fullWidth = m_request.drawnWidth();
    request.fullHeight = m_request.drawnHeight();
    request.tileX = tile.x;
    request.tileY = m_request.drawnHeight() - tile.y - tile.height;
    request.pixelsPerPoint = m_request.pixelsPerPoint * m_request.supersample;
    request.supersample = m_request.supersample;
    request.progressFrom = m_done;
    request.progressTo = drawn;
    return request;
}

void PictureRows::readBack(ServiceImage& image, const Tile& tile, double done, std::vector<unsigned char>& band)
{
    Progress progress("Reading the image back", m_done, done, tile.height);
    const int factor = m_request.supersample;
    const std::size_t left = rgbBytes(tile.x / factor);
    Planes planes(tile.width);
    BoxFilter filter(tile.width / factor, factor);
    for (int y = 0; y < tile.height; ++y) {
        unsigned char* const rgb =
            band.data() + rgbBytes(m_request.width) * static_cast<std::size_t>(y / factor) + left;
        image.readRow(y, planes.red(), planes.green(), planes.blue());
        if (factor == 1)
            planes.interleaveInto(rgb);
        else
            filter.add(planes.red(), planes.green(), planes.blue(), rgb);
        progress.step();
    }
}

void PictureRows::writeBand(int firstRow, int rows, RowSink& sink)
{
    Progress progress(m_writing, m_done, (firstRow + rows) / static_cast<double>(m_request.height), rows);
    for (int i = 0; i < rows; ++i) {
        while (!sink.hasRoom())
            progress.stepWithin();
        sink.takeRow(firstRow + i, rowOfBand(i));
        progress.step();
    }
}

const unsigned char* PictureRows::rowOfBand(int row)
{
    const std::size_t at = rgbBytes(m_request.width) * static_cast<std::size_t>(row);
    if (!m_request.transparent)
        return m_band.data() + at;
    m_row.resize(static_cast<std::size_t>(m_request.width) * 4);
    matteRow(m_band.data() + at, m_bandOnBlack.data() + at, m_request.width, m_row.data());
    return m_row.data();
}

void PictureRows::requireSameView() const
{
    if (!m_view.isCurrent())
        throw ExportFailure("The view was changed while the image was drawn. Export the image again.");
}

} // namespace velmora::engine
