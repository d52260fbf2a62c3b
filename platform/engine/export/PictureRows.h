#pragma once

#include "engine/export/PictureRequest.h"
#include "engine/export/TileSize.h"
#include "engine/export/ViewStamp.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

class RowSink;
class ServiceImage;
struct ExportRequest;

/// Draws a picture of the active page in bands over its whole width, each in one or more tiles side
/// by side, and hands out the rows. The memory it takes does not depend on the picture's height.
///
/// Everything is done in slices; the work is inside a BusyScope. The steps of a band are
/// drawing a tile, reading it back, and writing the rows when all tiles are there.
class PictureRows {
public:
    /// `writing` is what the sink does, in a few words for a person.
    PictureRows(const PictureRequest& request, std::string writing);
    ~PictureRows();
    PictureRows(const PictureRows&) = delete;
    PictureRows& operator=(const PictureRows&) = delete;

    /// Throws ExportFailure or ExportInterrupted, and what the sink throws.
    void sendTo(RowSink& sink);

private:
    /// In pixels as drawn, from the upper left corner of the picture.
    struct Tile {
        int x;
        int y;
        int width;
        int height;
    };

    int drawBand(int firstRow);
    void drawTiles(int firstRow, int rows);
    /// On white and, of a picture without its ground, once more on black.
    void drawTile(const Tile& tile, double done);
    void drawTileOn(bool black, const Tile& tile, double done);
    ServiceImage& imageOf(int width, int height);
    ExportRequest partOfPicture(const Tile& tile, double drawn) const;
    void readBack(ServiceImage& image, const Tile& tile, double done, std::vector<unsigned char>& band);
    void writeBand(int firstRow, int rows, RowSink& sink);
    const unsigned char* rowOfBand(int row);
    void requireSameView() const;

    PictureRequest m_request;
    std::string m_writing;
    TileSize m_tileSize;
    ViewStamp m_view;
    double m_done = 0;                     ///< of the whole, 0 to 1
    std::unique_ptr<ServiceImage> m_image; ///< of the last tile, for the next one of its size
    std::vector<unsigned char> m_band;
    std::vector<unsigned char> m_bandOnBlack; ///< of a picture without its ground
    std::vector<unsigned char> m_row;         ///< with alpha
};

} // namespace velmora::engine
