#include "Settings.h"

#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <vector>

namespace viewer {

using velmora::toolbox::ArgList;
using velmora::toolbox::StyleValue;

namespace {

constexpr int NoOffset = -1;
constexpr int Replace = 255;

std::vector<long> idsOf(const char* name)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, name);
    return ids;
}

} // namespace

long readSetting(const char* branch, const char* name)
{
    long value = 0;
    ArgList arguments;
    StyleValue(branch).setupGetValueArgList(idsOf(name), NoOffset, NoOffset, arguments);
    arguments.appendArbParamPtr("IValue", &value);
    return StyleValue::returnCodeOk(StyleValue::styleGetLowLevel(arguments)) ? value : 0;
}

void writeSetting(const char* branch, const char* name, int value)
{
    ArgList arguments;
    StyleValue(branch).setupSetValueArgList(idsOf(name), nullptr, NoOffset, NoOffset, Replace, arguments);
    arguments.appendArbParam("IValue", value);
    arguments.appendDouble("DValue", value);
    StyleValue::styleSetLowLevel(arguments);
}

} // namespace viewer
