// The lines of the active page and its legend.

#include "engine/VelUtil.h"
#include "engine/api/FrameInArea.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/plot/xy/XYPlot.h"

#include <string>

using namespace velmora::engine;

namespace {

/// Null on a page without lines.
std::shared_ptr<XYPlot> linesOf(const std::shared_ptr<Page>& page)
{
    return page ? std::dynamic_pointer_cast<XYPlot>(page->currentPlot()) : nullptr;
}

/// Applies a change to a line of the active page, given by its place from 0.
template <typename Change>
int changeLine(int line, const Change& change)
{
    if (!requireRunning())
        return 0;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<XYPlot> plot = linesOf(page);
    const std::size_t count = plot ? plot->lineCount() : 0;
    if (line < 1 || static_cast<std::size_t>(line) > count) {
        setLastError("There is no line " + std::to_string(line) + ": the page shows " + std::to_string(count) +
                     " lines. Count them from 1.");
        return 0;
    }
    change(*plot, static_cast<std::size_t>(line) - 1);
    page->plotChanged();
    return 1;
}

} // namespace

int VelUtilLegendLineAt(double x, double y)
{
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<XYPlot> plot = linesOf(page);
    FrameInArea frame;
    std::size_t line = 0;
    const bool found =
        plot && findFrame(*page, frame) && plot->legendLineAt(frame.fractionX(x), frame.fractionY(y), line);
    return found ? static_cast<int>(line) + 1 : 0;
}

int VelUtilLineIsShown(int line)
{
    const std::shared_ptr<XYPlot> plot = linesOf(pages().active());
    return plot && line >= 1 && static_cast<std::size_t>(line) <= plot->lineCount() &&
           plot->isLineShown(static_cast<std::size_t>(line) - 1);
}

int VelUtilLineShow(int line, int shown)
{
    traceCall("VelUtilLineShow");
    return changeLine(line, [shown](XYPlot& plot, std::size_t place) { plot.showLine(place, shown != 0); });
}

int VelUtilLineShowAlone(int line)
{
    traceCall("VelUtilLineShowAlone");
    return changeLine(line, [](XYPlot& plot, std::size_t place) { plot.showLineAlone(place); });
}
