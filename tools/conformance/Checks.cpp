// The checks of a content, for engines that have such.
#include "Checks.h"

#include "ContentChecks.h"

#include "base/AppLock.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "integration/glarea/GLDrawArea.h"
#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <QApplication>
#include <QTemporaryFile>
#include <vector>

namespace conformance {

using namespace velmora::sdk::integration;

namespace {

constexpr int Width = 700;
constexpr int Height = 480;
constexpr int NoOffset = -1;
constexpr int Replace = 255;

struct Kind {
    const char* name;
    ImageRenderingStrategy_e strategy;
    int prefersEgl;
};

constexpr Kind Images[] = {{"pixel buffer", ImageRenderingStrategy_Hardware, 0},
                           {"EGL image", ImageRenderingStrategy_Hardware, 1},
                           {"software image", ImageRenderingStrategy_Software, 0}};

void preferEgl(int preferred)
{
    using velmora::toolbox::StyleValue;
    const velmora::sdk::AppLock lock(velmora::sdk::AppLock::ImplicitMacroRecording::Off);
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, "PreferEGL");
    velmora::toolbox::ArgList arguments;
    StyleValue("Interface", "OpenGLConfig", "ImageRendering")
        .setupSetValueArgList(ids, nullptr, NoOffset, NoOffset, Replace, arguments);
    arguments.appendArbParam("IValue", preferred);
    StyleValue::styleSetLowLevel(arguments);
}

void exportImage(const Kind& kind, ContentChecks& checks, Report& report)
{
    QTemporaryFile file;
    if (!file.open())
        return report.skip(kind.name, "all", "there is no temporary file to be had");
    preferEgl(kind.prefersEgl);
    const VelExportImageOptions options{Width, Height, 1, ExportRegion_CurrentFrame, kind.strategy, 0, 0};
    checks.prepare(kind.name);
    const bool isWritten = VelUtilExportImage(file.fileName().toUtf8().constData(), &options) != 0;
    preferEgl(0);
    if (!checks.isDone())
        report.skip(kind.name, "all", std::string("there is no such image: ") + VelUtilLastErrorMessage());
    else if (!isWritten && checks.refusal().empty())
        report.add(kind.name, "export", false, VelUtilLastErrorMessage());
    checks.prepare("");
}

} // namespace

void loadModules(const Options& options)
{
    for (const std::string& module : options.modules)
        velmora::content::loadModule(module);
}

void checkShownContent(GLDrawArea&, const Options& options, Report& report)
{
    const auto content = velmora::content::shown();
    Limits limits;
    limits.longestPortion = options.longest;
    const auto checks = std::make_shared<ContentChecks>(content, limits, report);
    checks->prepare("drawing area");
    velmora::content::show(checks);
    VelUtilWorkFinish();
    if (!checks->isDone())
        report.add("drawing area", "a picture", false, "the area is not drawn; is its window hidden?");
    for (const Kind& kind : Images)
        exportImage(kind, *checks, report);
    velmora::content::show(content);
    VelUtilWorkFinish();
}

} // namespace conformance
