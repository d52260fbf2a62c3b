// How the surface of the active page looks.

#include "engine/VelUtil.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/plot/surface/SurfacePlot.h"

#include <string>

using namespace velmora::engine;

namespace {

constexpr double LeastExaggeration = 0.01;
constexpr double MostExaggeration = 100;

/// Null on a page without a surface.
std::shared_ptr<SurfacePlot> surfaceOf(const std::shared_ptr<Page>& page)
{
    return page ? std::dynamic_pointer_cast<SurfacePlot>(page->currentContent()) : nullptr;
}

template <typename Change>
int changeSurface(const Change& change)
{
    if (!requireRunning())
        return 0;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<SurfacePlot> plot = surfaceOf(page);
    if (!plot) {
        setLastError("The page shows no surface. Load a grid.");
        return 0;
    }
    change(*plot);
    page->contentChanged();
    return 1;
}

} // namespace

int VelUtilSurfaceIsShown()
{
    return surfaceOf(pages().active()) ? 1 : 0;
}

int VelUtilSurfaceSetExaggeration(double exaggeration)
{
    traceCall("VelUtilSurfaceSetExaggeration");
    if (!(exaggeration >= LeastExaggeration && exaggeration <= MostExaggeration)) {
        setLastError(std::to_string(exaggeration) + " is no exaggeration of heights: give 0.01 to 100.");
        return 0;
    }
    return changeSurface([exaggeration](SurfacePlot& plot) { plot.setExaggeration(exaggeration); });
}

double VelUtilSurfaceGetExaggeration()
{
    const std::shared_ptr<SurfacePlot> plot = surfaceOf(pages().active());
    return plot ? plot->exaggeration() : 1;
}

int VelUtilSurfaceClipColors(int clipped)
{
    traceCall("VelUtilSurfaceClipColors");
    return changeSurface([clipped](SurfacePlot& plot) { plot.clipColors(clipped != 0); });
}

int VelUtilSurfaceColorsAreClipped()
{
    const std::shared_ptr<SurfacePlot> plot = surfaceOf(pages().active());
    return plot && plot->areColorsClipped();
}
