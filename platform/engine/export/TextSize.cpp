#include "engine/export/TextSize.h"

#include "engine/page/Layout.h"
#include "engine/page/Page.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

namespace velmora::engine {
namespace {

using namespace velmora::sdk::integration;

constexpr double PointsPerInch = 72;
// Not the screen's: a file shall not tell which screen it was made at, nor how that one is scaled.
constexpr double UsualDotsPerInch = 96;

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
    return UsualDotsPerInch / PointsPerInch * usualMagnification(request.width, request.height);
}

} // namespace velmora::engine
