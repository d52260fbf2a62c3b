// The view of the active page, and its frames on the paper.

#include "engine/VelUtil.h"
#include "engine/api/FrameInArea.h"
#include "engine/core/Engine.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/plot/Plot.h"
#include "engine/style/StyleTree.h"

#include <algorithm>

using namespace velmora::engine;

namespace {

/// Applies a change to the active page's plot, if it has one.
template <typename Change>
void changeView(const Change& change)
{
    if (!requireRunning())
        return;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Plot> plot = page->currentPlot();
    if (plot && change(*plot, *page))
        page->plotChanged();
}

} // namespace

int VelUtilViewCanRotate()
{
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Plot> plot = page ? page->currentPlot() : nullptr;
    return plot && plot->canRotate();
}

void VelUtilViewRotate(double aboutVertical, double tilt)
{
    traceCall("VelUtilViewRotate");
    changeView([&](Plot& plot, const Page&) {
        plot.rotate(aboutVertical, tilt);
        return true;
    });
}

void VelUtilViewTranslate(double dx, double dy)
{
    traceCall("VelUtilViewTranslate");
    changeView([&](Plot& plot, const Page& page) {
        FrameInArea frame;
        if (!findFrame(page, frame))
            return false;
        plot.translate(dx / frame.rect.width, -dy / frame.rect.height);
        return true;
    });
}

void VelUtilViewZoom(double factor, double x, double y)
{
    traceCall("VelUtilViewZoom");
    changeView([&](Plot& plot, const Page& page) {
        FrameInArea frame;
        if (!(factor > 0) || !findFrame(page, frame))
            return false;
        plot.zoom(factor, frame.fractionX(x), frame.fractionY(y));
        return true;
    });
}

void VelUtilViewZoomTo(double x1, double y1, double x2, double y2)
{
    traceCall("VelUtilViewZoomTo");
    changeView([&](Plot& plot, const Page& page) {
        FrameInArea frame;
        if (x1 == x2 || y1 == y2 || !findFrame(page, frame))
            return false;
        plot.zoomTo(frame.fractionX(std::min(x1, x2)), frame.fractionY(std::max(y1, y2)),
                    frame.fractionX(std::max(x1, x2)), frame.fractionY(std::min(y1, y2)));
        return true;
    });
}

int VelUtilViewZoomAxis(double factor, double x, double y)
{
    traceCall("VelUtilViewZoomAxis");
    bool isAxis = false;
    changeView([&](Plot& plot, const Page& page) {
        FrameInArea frame;
        isAxis = factor > 0 && findFrame(page, frame) && plot.zoomAxis(factor, frame.fractionX(x), frame.fractionY(y));
        return isAxis;
    });
    return isAxis ? 1 : 0;
}

void VelUtilViewFit()
{
    traceCall("VelUtilViewFit");
    changeView([](Plot& plot, const Page&) {
        plot.fit();
        return true;
    });
}

void VelUtilViewShowAll()
{
    traceCall("VelUtilViewShowAll");
    changeView([](Plot& plot, const Page&) {
        plot.showAll();
        return true;
    });
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
