#include "engine/style/StylePath.h"

#include "engine/api/VelArgList.h"
#include "engine/style/StyleCodes.h"
#include "engine/style/StyleWords.h"

namespace velmora::engine::style {
namespace {

constexpr long NoOffset = -1;
constexpr long AllOfASet = 0;
constexpr long Replace = 255;

bool holdsOrLacks(const VelArgList* arguments, const char* name, long expected)
{
    long value = expected;
    VelArgListGetLong(arguments, name, &value);
    return value == expected;
}

/// An empty word is a word: a path that has one leads nowhere.
void appendWord(std::string& path, const std::string& word)
{
    path += '/';
    path += word;
}

void appendWords(const VelArgList* arguments, std::string& path)
{
    const char* word = nullptr;
    for (int i = 1; VelArgListGetString(arguments, ("Word" + std::to_string(i)).c_str(), &word); ++i)
        appendWord(path, word);
}

/// False when an identifier names no word.
bool appendMacros(const VelArgList* arguments, std::string& path)
{
    long id = 0;
    for (int i = 1; VelArgListGetLong(arguments, ("MacroID" + std::to_string(i)).c_str(), &id); ++i) {
        const std::string* word = wordOfId(id);
        if (!word)
            return false;
        appendWord(path, *word);
    }
    return true;
}

} // namespace

int pathOf(const VelArgList* arguments, std::string& path)
{
    if (!arguments)
        return StyleCode_NoArgumentList;
    appendWords(arguments, path);
    if (!appendMacros(arguments, path))
        return StyleCode_UnknownPath;
    path.erase(0, 1); // the separator before the first word
    const bool plain = holdsOrLacks(arguments, "Offset1", NoOffset) && holdsOrLacks(arguments, "Offset2", NoOffset);
    return plain ? StyleCode_Ok : StyleCode_NotSupported;
}

int checkAssignment(const VelArgList* arguments)
{
    const bool plain = holdsOrLacks(arguments, "Set", AllOfASet) && holdsOrLacks(arguments, "AssignOp", Replace);
    return plain ? StyleCode_Ok : StyleCode_NotSupported;
}

} // namespace velmora::engine::style
