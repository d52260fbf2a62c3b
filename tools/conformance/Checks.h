#pragma once

#include "Options.h"
#include "Report.h"

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
} // namespace integration
} // namespace sdk
} // namespace velmora

namespace conformance {

/// Loads the modules; throws velmora::ExceptionBase.
void loadModules(const Options& options);
/// Checks the content that the page shows, in the area and in images.
void checkShownContent(velmora::sdk::integration::GLDrawArea& area, const Options& options, Report& report);

} // namespace conformance
