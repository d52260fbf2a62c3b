#include "engine/page/RegionDrawing.h"

#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <algorithm>

namespace velmora::engine {
namespace {

using namespace velmora::sdk::integration;

// An image of the work area has the proportions of text, surroundings and picture that the screen shows.
Picture enlargedWorkArea(const Page& page, int width, int height, double pixelsPerPoint)
{
    if (!page.canShow())
        return workAreaPicture(page, width, height, pixelsPerPoint, usualMagnification(width, height));
    int areaWidth = 0;
    int areaHeight = 0;
    page.area()->getSize(&areaWidth, &areaHeight);
    const double larger = std::min(static_cast<double>(width) / areaWidth, static_cast<double>(height) / areaHeight);
    const double shown = workAreaPicture(page, areaWidth, areaHeight, 0).pixelsPerPoint;
    Picture picture =
        workAreaPicture(page, width, height, pixelsPerPoint > 0 ? pixelsPerPoint : shown * larger, larger);
    picture.leastText *= std::max(larger, 1.0);
    return picture;
}

Picture wholePicture(const Page& page, ExportRegion_e region, int width, int height, double pixelsPerPoint)
{
    switch (region) {
    case ExportRegion_Page:
        return paperPicture(page, width, height, pixelsPerPoint);
    case ExportRegion_WorkArea:
        return enlargedWorkArea(page, width, height, pixelsPerPoint);
    case ExportRegion_CurrentFrame:
        break;
    }
    return currentFramePicture(page, width, height, pixelsPerPoint);
}

} // namespace

Picture regionPicture(const Page& page, ExportRegion_e region, int width, int height, const ExportRequest& request)
{
    const bool isTile = request.fullWidth > 0 && request.fullHeight > 0;
    const int fullWidth = isTile ? request.fullWidth : width;
    const int fullHeight = isTile ? request.fullHeight : height;
    Picture picture = wholePicture(page, region, fullWidth, fullHeight, request.pixelsPerPoint)
                          .seenFrom(request.tileX, request.tileY);
    picture.isOnBlack = request.onBlack;
    if (picture.leastText > 0)
        picture.leastText = std::max(picture.leastText, LegibleText * request.supersample);
    return picture;
}

} // namespace velmora::engine
