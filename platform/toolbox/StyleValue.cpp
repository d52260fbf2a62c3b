#include "toolbox/StyleValue.h"

#include "engine/api/VelStyle.h"
#include "engine/style/StyleCodes.h"
#include "testing/EngineProbe.h"
#include "toolbox/ArgList.h"
#include "toolbox/StringList.h"
#include "toolbox/Words.h"

namespace velmora::toolbox {
namespace {

constexpr long EndOfIds = -1;

void appendPath(const std::vector<std::string>& words, const std::vector<long>& ids, ArgList& args)
{
    int position = 0;
    for (const std::string& word : words)
        args.appendString(("Word" + std::to_string(++position)).c_str(), word.c_str());
    position = 0;
    for (const long id : ids) {
        if (id == EndOfIds)
            break;
        args.appendArbParam(("MacroID" + std::to_string(++position)).c_str(), id);
    }
}

} // namespace

StyleValue::StyleValue(const char* word1, const char* word2, const char* word3, const char* word4, const char* word5,
                       const char* word6, const char* word7)
    : m_words(wordsUpToNull({word1, word2, word3, word4, word5, word6, word7}))
{
    testing::EngineProbe::passPoint("StyleValue");
}

StyleValue::StyleValue(const StringList& words) : m_words(words.words())
{
    testing::EngineProbe::passPoint("StyleValue");
}

StyleValue::~StyleValue() = default;

void StyleValue::initMacroIDsfromStyleValueNames(std::vector<long>& ids, const char* name1, const char* name2,
                                                 const char* name3, const char* name4, const char* name5,
                                                 const char* name6, const char* name7)
{
    ids.clear();
    for (const std::string& word : wordsUpToNull({name1, name2, name3, name4, name5, name6, name7}))
        ids.push_back(VelStyleWordId(word.c_str()));
    ids.push_back(EndOfIds);
}

void StyleValue::setupGetValueArgList(const std::vector<long>& ids, int offset1, int offset2, ArgList& args) const
{
    args.clear();
    appendPath(m_words, ids, args);
    args.appendInt("Offset1", offset1);
    args.appendInt("Offset2", offset2);
}

void StyleValue::setupSetValueArgList(const std::vector<long>& ids, const void* set, int offset1, int offset2,
                                      int assignOp, ArgList& args) const
{
    setupGetValueArgList(ids, offset1, offset2, args);
    args.appendArbParam("Set", reinterpret_cast<long>(set));
    args.appendInt("AssignOp", assignOp);
}

int StyleValue::getFinalValue(bool* value, ArgList& args)
{
    return VelStyleGetBool(args.getRef(), value);
}

int StyleValue::getFinalValue(double* value, ArgList& args)
{
    return VelStyleGetDouble(args.getRef(), value);
}

int StyleValue::setFinalValue(bool value, ArgList& args)
{
    return VelStyleSetBool(args.getRef(), value);
}

int StyleValue::setFinalValue(double value, ArgList& args)
{
    return VelStyleSetDouble(args.getRef(), value);
}

int StyleValue::styleGetLowLevel(ArgList& args)
{
    return VelStyleGetLowLevel(args.getRef());
}

int StyleValue::styleSetLowLevel(ArgList& args)
{
    return VelStyleSetLowLevel(args.getRef());
}

bool StyleValue::returnCodeOk(int code)
{
    return code == engine::style::StyleCode_Ok;
}

} // namespace velmora::toolbox
