// The lines of the active page, its axes and its legend.

#include "engine/VelUtil.h"
#include "engine/api/FrameInArea.h"
#include "engine/core/Busy.h"
#include "engine/core/Engine.h"
#include "engine/core/Interruption.h"
#include "engine/core/LastError.h"
#include "engine/core/SlicedWork.h"
#include "engine/core/Trace.h"
#include "engine/data/DataDetails.h"
#include "engine/data/DataReader.h"
#include "engine/page/Pages.h"
#include "engine/plot/xy/Dashes.h"
#include "engine/plot/xy/XYPlot.h"

#include <iomanip>
#include <locale>
#include <sstream>
#include <string>

using namespace velmora::engine;

namespace {

/// Null on a page without lines.
std::shared_ptr<XYPlot> linesOf(const std::shared_ptr<Page>& page)
{
    return page ? std::dynamic_pointer_cast<XYPlot>(page->currentContent()) : nullptr;
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
    page->contentChanged();
    return 1;
}

/// The scales with one of them changed; false when there is no such axis.
bool withScale(AxisScales& scales, int axis, bool isLogarithmic)
{
    if (axis != 0 && axis != 1)
        return false;
    (axis == 0 ? scales.isLogX : scales.isLogY) = isLogarithmic;
    return true;
}

int stayLinear(int axis, const std::string& why)
{
    setLastError(std::string("The ") + (axis == 0 ? "x" : "y") + " axis stays linear: " + why);
    return 0;
}

std::string lookOf(const Series& line)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << '#' << std::hex << std::setfill('0');
    for (const int part : {line.color.red, line.color.green, line.color.blue})
        text << std::setw(2) << part;
    text << '\t';
    if (line.isPoints)
        text << "points";
    else
        for (const double length : Dashes::lengths(line.dashes))
            text << length << ' ';
    return text.str();
}

std::string columnsOf(const XYPlot& plot)
{
    std::string text;
    std::size_t line = 0;
    for (const Column& column : plot.table().columns) {
        const bool isLine = &column != plot.xColumn();
        text += (text.empty() ? "" : "\n") + fieldOf(column.name) + "\t" + fieldOf(column.unit) + "\t" +
                (isLine ? std::to_string(line + 1) + "\t" + lookOf(plot.lines()[line]) : "0\t\t");
        line += isLine ? 1 : 0;
    }
    return text;
}

/// Null for the row numbers.
bool findHorizontal(const XYPlot* plot, int number, const Column*& found)
{
    const std::size_t count = plot ? plot->table().columns.size() : 0;
    const bool isThere = plot && number >= 0 && static_cast<std::size_t>(number) <= count;
    if (!isThere)
        setLastError("There is no column " + std::to_string(number) + ": the page has " + std::to_string(count) +
                     ". Count them from 1; 0 stands for the row numbers.");
    else if (number > 0)
        found = &plot->table().columns[static_cast<std::size_t>(number) - 1];
    return isThere;
}

// The page may get other data meanwhile; the plot is held.
int setHorizontal(const std::shared_ptr<Page>& page, const std::shared_ptr<XYPlot>& plot, const Column* column)
{
    const BusyScope busy;
    noteInterruption(false);
    try {
        SlicedWork work("Arranging lines");
        plot->setXColumn(column, work);
        page->contentChanged();
        return 1;
    } catch (const ReadInterrupted&) {
        noteInterruption(true);
        setLastError("Arranging the lines was interrupted. They are as they were before.");
    } catch (...) {
        setLastErrorFromException("The lines could not be drawn over that column");
    }
    return 0;
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

void VelUtilLineShowAll(int shown)
{
    traceCall("VelUtilLineShowAll");
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<XYPlot> plot = linesOf(page);
    if (!plot)
        return;
    plot->showAllLines(shown != 0);
    page->contentChanged();
}

int VelUtilLineShowAlone(int line)
{
    traceCall("VelUtilLineShowAlone");
    return changeLine(line, [](XYPlot& plot, std::size_t place) { plot.showLineAlone(place); });
}

int VelUtilAxisCanBeLogarithmic(int axis)
{
    const std::shared_ptr<XYPlot> plot = linesOf(pages().active());
    AxisScales scales;
    return plot && withScale(scales, axis, true) && plot->canBeLogarithmic(scales);
}

int VelUtilAxisIsLogarithmic(int axis)
{
    const std::shared_ptr<XYPlot> plot = linesOf(pages().active());
    return plot && ((axis == 0 && plot->scales().isLogX) || (axis == 1 && plot->scales().isLogY));
}

int VelUtilAxisSetLogarithmic(int axis, int logarithmic)
{
    traceCall("VelUtilAxisSetLogarithmic");
    if (!requireRunning())
        return 0;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<XYPlot> plot = linesOf(page);
    AxisScales scales = plot ? plot->scales() : AxisScales();
    if (!withScale(scales, axis, logarithmic != 0) || !plot) {
        setLastError("There is no axis " + std::to_string(axis) +
                     " of a plot of lines. Load a table; its axes are 0 (x) and 1 (y).");
        return 0;
    }
    if (logarithmic != 0 && !VelUtilAxisCanBeLogarithmic(axis))
        return stayLinear(axis, "dates have no logarithm.");
    if (!plot->setScales(scales))
        return stayLinear(axis, "no value that is shown is above 0, and others have no logarithm. Show another line.");
    page->contentChanged();
    return 1;
}

long VelUtilAxisValuesLeftOut()
{
    const std::shared_ptr<XYPlot> plot = linesOf(pages().active());
    return plot ? static_cast<long>(plot->leftOut()) : 0;
}

const char* VelUtilColumnDetails()
{
    static std::string details;
    const std::shared_ptr<XYPlot> plot = linesOf(pages().active());
    details = plot ? columnsOf(*plot) : "";
    return details.c_str();
}

int VelUtilColumnSetHorizontal(int column)
{
    traceCall("VelUtilColumnSetHorizontal");
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<XYPlot> plot = linesOf(page);
    const Column* found = nullptr;
    return requireRunning() && findHorizontal(plot.get(), column, found) ? setHorizontal(page, plot, found) : 0;
}
