#pragma once

#include "engine/plot/Plot.h"
#include "engine/plot/Stroke.h"
#include "engine/plot/xy/Series.h"

#include <cstddef>
#include <vector>

namespace velmora::engine {

/// Where values come to lie in the frame.
struct AxisMap {
    AxisRange x; ///< of a logarithmic axis: the decadic logarithms
    AxisRange y;
    Rect plot; ///< pixels
    AxisScales scales = {};

    /// What has no place on a logarithmic axis lies infinitely far below.
    Point operator()(Point value) const
    {
        return {plot.x1 + x.fractionOf(scales.alongX(value.x)) * plot.width(),
                plot.y1 + y.fractionOf(scales.alongY(value.y)) * plot.height()};
    }
};

/// Turns the rows of a series into lines in pixels, portion by portion. A gap ends a line. Of many
/// rows in one column of pixels those are kept that show: the first, the lowest, the highest and the
/// last one; of many points at one place the first. What is far outside is cut off, because floats cannot hold it.
class SeriesPath {
public:
    struct Portion {
        std::vector<std::vector<StrokePoint>> lines;
        std::vector<StrokePoint> dots; ///< values between two gaps, and those of a series of points
        std::vector<Rect> bars;        ///< of a coarse path: what lines cover in one column of pixels
        std::size_t rows = 0;          ///< that were read for it
    };

    SeriesPath(const Series& series, const AxisMap& map, double lineWidth, Detail detail = Detail::Full);

    /// The next portion; false when there is none.
    bool next(Portion& portion);
    /// How many calls `next` takes at the most.
    static std::size_t mostPortions(const Series& series);

private:
    struct PixelColumn {
        double number = 0;
        std::size_t points = 0;
        Point first, lowest, highest, last;
        std::size_t lowestAt = 0;
        std::size_t highestAt = 0;
    };

    void takeRow(Portion& portion);
    void takePoint(Portion& portion);
    bool takeBlock(Portion& portion);
    bool takeBlockWithGaps(const SeriesBlocks::Block& block, Portion& portion);
    bool isAlone(std::size_t row) const;
    bool isGap(std::size_t row) const;
    void addToColumn(Point point, Portion& portion);
    void endColumn(Portion& portion);
    void addBar(const PixelColumn& column, Portion& portion);
    void endLine(Portion& portion);
    void lineTo(Point point, Portion& portion);
    void append(Point from, Point to, Portion& portion);

    Series m_series;
    AxisMap m_map;
    Rect m_clip;
    double m_placeSize; ///< of points that cover each other
    std::vector<bool> m_takenPlaces;
    Detail m_detail;
    std::size_t m_row = 0;
    PixelColumn m_column;
    bool m_hasLast = false;
    Point m_last;
    std::size_t m_segments = 0; ///< in the current portion
};

} // namespace velmora::engine
