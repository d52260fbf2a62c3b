#include "integration/services/SelectRegionService.h"

#include "base/AppLock.h"
#include "engine/VelUtil.h"
#include "toolbox/ArgList.h"

namespace velmora::sdk::integration::services {

SelectRegionService::SelectRegionService() = default;
SelectRegionService::~SelectRegionService() = default;

void SelectRegionService::selectItems(double x1, double y1, double x2, double y2, bool addToSelection)
{
    const AppLock lock(AppLock::ImplicitMacroRecording::Off);
    if (!addToSelection)
        VelUtilPickDeselectAll();
    VelUtilLastErrorMessageClear();

    toolbox::ArgList arguments;
    arguments.appendDouble("X1", x1);
    arguments.appendDouble("X2", x2);
    arguments.appendDouble("Y1", y1);
    arguments.appendDouble("Y2", y2);
    arguments.appendInt("SelectZones", 1);
    arguments.appendInt("SelectGeoms", 1);
    arguments.appendInt("SelectText", 1);
    arguments.appendInt("ConsiderStyle", 1);
    VelUtilPickAddAllInRectX(arguments.getRef());

    if (VelUtilDialogLastMessageBox())
        VelUtilLastErrorMessageClear();
}

} // namespace velmora::sdk::integration::services
