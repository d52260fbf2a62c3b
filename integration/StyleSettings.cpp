#include "integration/StyleSettings.h"

#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

#include <vector>

namespace velmora::sdk::integration {

using toolbox::StyleValue;

int readStyleInteger(const StyleValue& section, const char* key, int defaultValue)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, key);
    toolbox::ArgList args;
    section.setupGetValueArgList(ids, NoOffset, NoOffset, args);
    long value = defaultValue;
    args.appendArbParamPtr("IValue", &value);
    // What a failed read leaves in the value counts for nothing.
    if (!StyleValue::returnCodeOk(StyleValue::styleGetLowLevel(args)))
        return defaultValue;
    return static_cast<int>(value);
}

int writeStyleInteger(const StyleValue& section, const char* key, int value)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, key);
    toolbox::ArgList args;
    section.setupSetValueArgList(ids, nullptr, NoOffset, NoOffset, ReplaceAssignment, args);
    args.appendArbParam("IValue", value);
    args.appendDouble("DValue", value);
    return StyleValue::styleSetLowLevel(args);
}

} // namespace velmora::sdk::integration
