// Pictures of the active page: in files, as rows, and in the off-screen images of the binding.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/export/Export.h"
#include "engine/page/OffscreenDrawing.h"

#include <string>

using namespace velmora::engine;

int VelUtilExportImage(const char* fileName, const VelExportImageOptions* options)
{
    const std::string name = fileName ? fileName : "";
    traceCallOf([&] { return "VelUtilExportImage " + name; });
    return requireRunning() && exportImage(name, options) ? 1 : 0;
}

int VelUtilRenderPage(double dotsPerInch, int strategy, TakeRow takeRow, long clientData)
{
    traceCall("VelUtilRenderPage");
    return requireRunning() && renderPage(dotsPerInch, strategy, takeRow, clientData) ? 1 : 0;
}

int VelEngRenderOffscreenImage(velmora::sdk::integration::ExportRegion_e region,
                               velmora::sdk::integration::OffscreenImageInterface* image)
{
    if (!requireRunning())
        return 0;
    if (!image) {
        setLastError("There is no image to draw into.");
        return 0;
    }
    return drawImage(region, *image) ? 1 : 0;
}
