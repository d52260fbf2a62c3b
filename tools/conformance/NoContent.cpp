// In place of the checks of a content, for engines that have none.
#include "Checks.h"

#include "exception/ExceptionBase.h"

namespace conformance {

void loadModules(const Options& options)
{
    if (!options.modules.empty())
        throw velmora::ExceptionBase("This engine takes no modules. Leave --content out.", false);
}

void checkShownContent(velmora::sdk::integration::GLDrawArea&, const Options&, Report& report)
{
    report.skip("drawing area", "all", "this engine has no contents of others");
}

} // namespace conformance
