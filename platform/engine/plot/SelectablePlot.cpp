#include "engine/plot/SelectablePlot.h"

#include "engine/plot/PlotTexts.h"

#include <iterator>

namespace velmora::engine {

namespace {

// In points: a frame with less than this on its shorter side shrinks what is in it.
constexpr double ComfortableSide = 380;

// The height of a small frame in lines of the lowest text; in a still smaller one that gives way too, or there
// would be no room for the plot.
constexpr double LeastLines = 12;

constexpr std::size_t MostNames = 3;

} // namespace

double FrameSize::points(double length) const
{
    const double shorter = std::min(width, height) / std::max(pixelsPerPoint, 1e-6);
    return length * pixelsPerPoint * std::min(1.0, shorter / ComfortableSide);
}

double FrameSize::textSize(double length) const
{
    const double least = std::min(leastText, std::min(width, height) / LeastLines);
    return std::max(points(length), least);
}

double FrameSize::besideLabel(double length) const
{
    return std::max(points(length), length * textSize(plotsize::Label) / plotsize::Label);
}

FrameSize frameSizeOf(const Drawing& drawing)
{
    return {drawing.frameWidth, drawing.frameHeight, drawing.pixelsPerPoint, drawing.leastText};
}

int SelectablePlot::pick(double x1, double y1, double x2, double y2, const PickFilter& filter)
{
    const Rect rect{x1 * m_frameSize.width, y1 * m_frameSize.height, x2 * m_frameSize.width, y2 * m_frameSize.height};
    Selection found;
    collect(rect, filter, found);
    m_selection.insert(found.begin(), found.end());
    return static_cast<int>(found.size());
}

bool SelectablePlot::selectNeighbour(bool after)
{
    Selection shown;
    collect(m_frameSize.rect(), PickFilter(), shown);
    auto first = shown.begin(); // of those that follow
    auto last = shown.end();
    if (after && !m_selection.empty())
        first = shown.upper_bound(*m_selection.rbegin());
    else if (!m_selection.empty())
        last = shown.lower_bound(*m_selection.begin());
    m_selection.clear();
    if (first == last)
        return false;
    m_selection.insert(after ? *first : *std::prev(last));
    return true;
}

std::string SelectablePlot::selectionDescription() const
{
    std::string text;
    std::size_t named = 0;
    for (const ObjectId& object : m_selection) {
        if (named == MostNames && m_selection.size() > MostNames)
            return text + " and " + std::to_string(m_selection.size() - named) + " more";
        text += (named++ == 0 ? "" : ", ") + nameOf(object);
    }
    return text;
}

} // namespace velmora::engine
