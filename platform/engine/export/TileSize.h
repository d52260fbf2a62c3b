#pragma once

#include "engine/export/PictureRequest.h"

namespace velmora::engine {

/// How large the images are in which a picture is drawn. It begins with what the memory for one
/// band of the picture allows; how large an image can be is unknown until one has been tried, so
/// that each refusal makes it smaller. Sizes are multiples of the supersampling.
class TileSize {
public:
    explicit TileSize(const PictureRequest& request);

    /// Pixels as drawn.
    int width() const { return m_columns * m_supersample; }
    int height() const { return m_rows * m_supersample; }
    /// Rows of the finished picture.
    int rows() const { return m_rows; }
    /// Halves the larger side; false when there is no point in trying anything smaller.
    bool halve();

private:
    int m_supersample;
    int m_columns; ///< of the finished picture
    int m_rows;
};

} // namespace velmora::engine
