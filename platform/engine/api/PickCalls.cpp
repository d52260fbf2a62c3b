// Selecting objects of the active page.

#include "engine/VelUtil.h"
#include "engine/api/VelArgList.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Layout.h"
#include "engine/page/Pages.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <algorithm>
#include <locale>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace velmora::engine;

namespace {

struct Range {
    double low = 0;
    double high = 0;
};

std::string describe(const VelArgList* arguments)
{
    std::ostringstream entry;
    entry.imbue(std::locale::classic());
    entry << "VelUtilPickAddAllInRectX";
    for (int i = 0; i < VelArgListCount(arguments); ++i) {
        const char* name = VelArgListNameAt(arguments, i);
        double value = 0;
        entry << ' ' << name << '=';
        if (VelArgListGetDouble(arguments, name, &value))
            entry << value;
    }
    return entry.str();
}

// The corners come in any order.
bool readRange(const VelArgList* arguments, const char* first, const char* second, Range& range)
{
    for (const auto& [name, value] : {std::pair{first, &range.low}, std::pair{second, &range.high}}) {
        if (VelArgListGetDouble(arguments, name, value))
            continue;
        setLastError(std::string("The argument \"") + name + "\" of the rectangle to select in is missing.");
        return false;
    }
    if (range.low > range.high)
        std::swap(range.low, range.high);
    return true;
}

// A kind of object that is not mentioned does not count.
bool readSwitch(const VelArgList* arguments, const char* name)
{
    long value = 0;
    return VelArgListGetLong(arguments, name, &value) && value != 0;
}

PickFilter readFilter(const VelArgList* arguments)
{
    return {readSwitch(arguments, "SelectZones"), readSwitch(arguments, "SelectGeoms"),
            readSwitch(arguments, "SelectText"), readSwitch(arguments, "ConsiderStyle")};
}

// Paper inches become fractions of the frame, cut off at its edges.
bool cutTo(double origin, double length, Range& range)
{
    range.low = std::max((range.low - origin) / length, 0.0);
    range.high = std::min((range.high - origin) / length, 1.0);
    return range.low <= range.high;
}

int pickInFrame(const Frame& frame, Range x, Range y, const PickFilter& filter)
{
    if (!cutTo(frame.rect.x, frame.rect.width, x) || !cutTo(frame.rect.y, frame.rect.height, y))
        return 0;
    return frame.content->pick(x.low, y.low, x.high, y.high, filter);
}

/// The contents of a page, in the order in which they are gone through.
std::vector<std::shared_ptr<Content>> contentsOf(const Page& page, bool forwards)
{
    std::vector<std::shared_ptr<Content>> contents;
    for (const Frame& frame : page.frames())
        contents.push_back(frame.content);
    if (!forwards)
        std::reverse(contents.begin(), contents.end());
    return contents;
}

/// Gives the selection up but for that of the last content that has one, from which it goes on; without one the first.
std::size_t keepLastSelection(const std::vector<std::shared_ptr<Content>>& contents)
{
    std::size_t last = 0;
    for (std::size_t i = 0; i < contents.size(); ++i)
        if (contents[i]->selectedCount() > 0)
            last = i;
    for (std::size_t i = 0; i < last; ++i)
        contents[i]->deselectAll();
    return last;
}

// Once around, and the one that it begins with a second time: from its own last object to its first.
int pickNeighbour(bool forwards)
{
    if (!requireRunning())
        return 0;
    const std::shared_ptr<Page> page = pages().active();
    const std::vector<std::shared_ptr<Content>> contents = contentsOf(*page, forwards);
    const std::size_t from = keepLastSelection(contents);
    bool found = false;
    for (std::size_t i = 0; i <= contents.size() && !contents.empty() && !found; ++i)
        found = contents[(from + i) % contents.size()]->selectNeighbour(forwards);
    if (found)
        page->contentChanged();
    return found ? 1 : 0;
}

} // namespace

void VelUtilPickDeselectAll()
{
    traceCall("VelUtilPickDeselectAll");
    if (!requireRunning() || VelUtilPickGetCount() == 0)
        return;
    const std::shared_ptr<Page> page = pages().active();
    for (const Frame& frame : page->frames())
        frame.content->deselectAll();
    page->contentChanged();
}

int VelUtilPickAddAllInRectX(VelArgList* arguments)
{
    if (!arguments) {
        setLastError("There is no argument list to select with.");
        return 0;
    }
    traceCallOf([&] { return describe(arguments); });
    Range x;
    Range y;
    if (!requireRunning() || !readRange(arguments, "X1", "X2", x) || !readRange(arguments, "Y1", "Y2", y))
        return 0;
    const PickFilter filter = readFilter(arguments);
    const std::shared_ptr<Page> page = pages().active();
    int picked = 0;
    for (const Frame& frame : page->frames())
        picked += pickInFrame(frame, x, y, filter);
    if (picked > 0)
        page->contentChanged();
    return 1;
}

int VelUtilPickNext()
{
    traceCall("VelUtilPickNext");
    return pickNeighbour(true);
}

int VelUtilPickPrevious()
{
    traceCall("VelUtilPickPrevious");
    return pickNeighbour(false);
}

int VelUtilPickGetCount()
{
    int count = 0;
    if (const std::shared_ptr<Page> page = pages().active())
        for (const Frame& frame : page->frames())
            count += frame.content->selectedCount();
    return count;
}

const char* VelUtilPickDescription()
{
    static std::string description;
    description.clear();
    if (const std::shared_ptr<Page> page = pages().active())
        for (const Frame& frame : page->frames()) {
            const std::string names = frame.content->selectionDescription();
            description += (description.empty() || names.empty() ? "" : ", ") + names;
        }
    return description.c_str();
}

void VelUtilPickPositionToPaper(double xPixel, double yPixel, double* xPaper, double* yPaper)
{
    const std::shared_ptr<Page> page = pages().active();
    int width = 0;
    int height = 0;
    if (page && page->area())
        page->area()->getSize(&width, &height);
    if (width < 1 || height < 1) {
        *xPaper = *yPaper = 0;
        return;
    }
    const PaperView view = workAreaView(*page, width, height);
    *xPaper = view.inchesX(xPixel);
    *yPaper = view.inchesY(height - yPixel);
}
