#include "engine/export/TextSize.h"

#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

#include <algorithm>

namespace velmora::engine {
namespace {

using namespace velmora::sdk::integration;

constexpr double PointsPerInch = 72;
// A picture of this width looks like a window of this size on the screen; others are that picture
// enlarged or reduced, text and lines included. In a low strip the height is what text must fit into.
constexpr double UsualWidth = 1000;
constexpr double LeastUsualHeight = 500;

// On paper, text is as large as the paper makes it; what the screen shows has the screen's
// proportions.
bool regionHasItsOwn(ExportRegion_e region)
{
    switch (region) {
    case ExportRegion_Page:
        return true;
    case ExportRegion_WorkArea:
        return pages().active()->canShow() || style::lookupInt("Interface/ShowPaper") != 0;
    case ExportRegion_CurrentFrame:
        break;
    }
    return false;
}

} // namespace

double pixelsPerPointOf(const PictureRequest& request, double dotsPerInch)
{
    if (dotsPerInch > 0)
        return dotsPerInch / PointsPerInch;
    if (regionHasItsOwn(request.region))
        return 0;
    return screenPixelsPerPoint() * std::min(request.width / UsualWidth, request.height / LeastUsualHeight);
}

} // namespace velmora::engine
