#include "ShownPage.h"

#include "base/AppLock.h"
#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <vector>

namespace viewer {

using velmora::toolbox::ArgList;
using velmora::toolbox::StyleValue;

namespace {

constexpr int NoOffset = -1;
constexpr int Replace = 255;

std::vector<long> idsOfSetting()
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, "ShowPaper");
    return ids;
}

} // namespace

bool isPageShown()
{
    long shown = 0;
    ArgList arguments;
    StyleValue("Interface").setupGetValueArgList(idsOfSetting(), NoOffset, NoOffset, arguments);
    arguments.appendArbParamPtr("IValue", &shown);
    return StyleValue::returnCodeOk(StyleValue::styleGetLowLevel(arguments)) && shown != 0;
}

void showPage(bool shown)
{
    const velmora::sdk::AppLock lock(velmora::sdk::AppLock::ImplicitMacroRecording::Off);
    ArgList arguments;
    StyleValue("Interface").setupSetValueArgList(idsOfSetting(), nullptr, NoOffset, NoOffset, Replace, arguments);
    arguments.appendArbParam("IValue", shown ? 1 : 0);
    arguments.appendDouble("DValue", shown ? 1 : 0);
    StyleValue::styleSetLowLevel(arguments);
}

} // namespace viewer
