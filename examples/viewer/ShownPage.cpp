#include "ShownPage.h"

#include "Settings.h"
#include "base/AppLock.h"

namespace viewer {

bool isPageShown()
{
    return readSetting("Interface", "ShowPaper") != 0;
}

void showPage(bool shown)
{
    const velmora::sdk::AppLock lock(velmora::sdk::AppLock::ImplicitMacroRecording::Off);
    writeSetting("Interface", "ShowPaper", shown ? 1 : 0);
}

} // namespace viewer
