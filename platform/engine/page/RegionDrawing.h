#pragma once

#include "engine/page/ExportRequest.h"
#include "engine/page/Picture.h"
#include "interfaces/EngineEnumerations.h"

namespace velmora::engine {

class Page;

/// The picture of a region of the page for an image of that size, which may be one tile of the
/// whole that the request describes.
Picture regionPicture(const Page& page, velmora::sdk::integration::ExportRegion_e region, int width, int height,
                      const ExportRequest& request);

} // namespace velmora::engine
