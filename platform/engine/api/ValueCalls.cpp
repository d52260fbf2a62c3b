// The value at a place of the active page, and the mark there.

#include "engine/VelUtil.h"
#include "engine/api/FrameInArea.h"
#include "engine/core/Busy.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/page/ScreenDrawing.h"

#include <string>

using namespace velmora::engine;

namespace {

bool findValue(const Page& page, double x, double y, FrameInArea& frame, ShownValue& found)
{
    const std::shared_ptr<Content> content = page.currentContent();
    return content && findFrame(page, frame) && content->valueAt(frame.fractionX(x), frame.fractionY(y), found);
}

void setMark(const std::shared_ptr<Page>& page, const std::optional<Mark>& mark)
{
    if (page->mark() == mark)
        return;
    page->setMark(mark);
    showMark(page);
}

} // namespace

const char* VelUtilViewValueAt(double x, double y, double* xShown, double* yShown)
{
    static std::string text;
    text.clear();
    const std::shared_ptr<Page> page = pages().active();
    FrameInArea frame;
    ShownValue value;
    if (page && !isBusy() && findValue(*page, x, y, frame, value)) {
        text = value.text;
        if (xShown)
            *xShown = frame.pixelX(value.x);
        if (yShown)
            *yShown = frame.pixelY(value.y);
    }
    return text.c_str();
}

void VelUtilViewMark(double x, double y)
{
    traceCall("VelUtilViewMark");
    const std::shared_ptr<Page> page = pages().active();
    FrameInArea frame;
    if (page && !isBusy() && page->canShow() && findFrame(*page, frame))
        setMark(page, Mark{x, frame.areaHeight - y});
}

void VelUtilViewUnmark()
{
    traceCall("VelUtilViewUnmark");
    const std::shared_ptr<Page> page = pages().active();
    if (page)
        setMark(page, std::nullopt);
}
