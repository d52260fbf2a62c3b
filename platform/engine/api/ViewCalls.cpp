// The view of the active page, and its frames on the paper.

#include "engine/VelUtil.h"
#include "engine/api/FrameInArea.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

#include <algorithm>
#include <string>

using namespace velmora::engine;

namespace {

/// Applies a change to the active page's content, if it has one.
template <typename Change>
void changeView(const Change& change)
{
    if (!requireRunning())
        return;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Content> content = page->currentContent();
    if (content && change(*content, *page))
        page->contentChanged();
}

} // namespace

int VelUtilViewCanRotate()
{
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Content> content = page ? page->currentContent() : nullptr;
    return content && content->canRotate();
}

void VelUtilViewRotate(double aboutVertical, double tilt)
{
    traceCall("VelUtilViewRotate");
    changeView([&](Content& content, const Page&) {
        content.rotate(aboutVertical, tilt);
        return true;
    });
}

void VelUtilViewTranslate(double dx, double dy)
{
    traceCall("VelUtilViewTranslate");
    changeView([&](Content& content, const Page& page) {
        FrameInArea frame;
        if (!findFrame(page, frame))
            return false;
        content.translate(dx / frame.rect.width, -dy / frame.rect.height);
        return true;
    });
}

void VelUtilViewZoom(double factor, double x, double y)
{
    traceCall("VelUtilViewZoom");
    changeView([&](Content& content, const Page& page) {
        FrameInArea frame;
        if (!(factor > 0) || !findFrame(page, frame))
            return false;
        content.zoom(factor, frame.fractionX(x), frame.fractionY(y));
        return true;
    });
}

void VelUtilViewZoomTo(double x1, double y1, double x2, double y2)
{
    traceCall("VelUtilViewZoomTo");
    changeView([&](Content& content, const Page& page) {
        FrameInArea frame;
        if (x1 == x2 || y1 == y2 || !findFrame(page, frame))
            return false;
        content.zoomTo(frame.fractionX(std::min(x1, x2)), frame.fractionY(std::max(y1, y2)),
                       frame.fractionX(std::max(x1, x2)), frame.fractionY(std::min(y1, y2)));
        return true;
    });
}

int VelUtilViewZoomAxis(double factor, double x, double y)
{
    traceCall("VelUtilViewZoomAxis");
    bool isAxis = false;
    changeView([&](Content& content, const Page& page) {
        FrameInArea frame;
        isAxis =
            factor > 0 && findFrame(page, frame) && content.zoomAxis(factor, frame.fractionX(x), frame.fractionY(y));
        return isAxis;
    });
    return isAxis ? 1 : 0;
}

void VelUtilViewFit()
{
    traceCall("VelUtilViewFit");
    changeView([](Content& content, const Page&) {
        content.fit();
        return true;
    });
}

void VelUtilViewShowAll()
{
    traceCall("VelUtilViewShowAll");
    changeView([](Content& content, const Page&) {
        content.showAll();
        return true;
    });
}

int VelUtilViewFrom(int side)
{
    traceCall("VelUtilViewFrom");
    if (side < 0 || side > 2) {
        setLastError("There is no side " + std::to_string(side) + " to look from: 0 is above, 1 south, 2 east.");
        return 0;
    }
    bool isSeen = false;
    changeView([&](Content& content, const Page&) { return isSeen = content.lookFrom(static_cast<Side>(side)); });
    if (!isSeen && isRunning())
        setLastError("The page shows no surface to see from another side. Load a grid.");
    return isSeen ? 1 : 0;
}

const char* VelUtilViewState()
{
    static std::string state;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Content> content = page ? page->currentContent() : nullptr;
    state = content ? content->viewState() : "";
    return state.c_str();
}

int VelUtilViewSetState(const char* state)
{
    traceCall("VelUtilViewSetState");
    const std::string text = state ? state : "";
    bool isView = false;
    changeView([&](Content& content, const Page&) { return isView = content.setViewState(text); });
    if (!isView && isRunning())
        setLastError("\"" + text +
                     "\" is no view of what the page shows. Give one that VelUtilViewState() told of it.");
    return isView ? 1 : 0;
}

void VelUtilFrameFitAllToPaper()
{
    traceCall("VelUtilFrameFitAllToPaper");
    if (requireRunning())
        pages().active()->fitFramesToPaper();
}

// From now on the paper shows, whole; clearing "Interface/ShowPaper" shows the frame alone again.
void VelUtilWorkViewFitPaper()
{
    traceCall("VelUtilWorkViewFitPaper");
    if (!requireRunning())
        return;
    style::tree().write("Interface/ShowPaper", 1L);
    pages().active()->changed();
}
