#include "integration/printing/PaperStyle.h"

#include "integration/StyleSettings.h"
#include "toolbox/ArgList.h"
#include "toolbox/StringList.h"
#include "toolbox/StyleValue.h"

#include <iterator>
#include <limits>
#include <vector>

namespace velmora::sdk::integration {
namespace {

using toolbox::ArgList;
using toolbox::StringList;
using toolbox::StyleValue;

constexpr const char* KernelPaperNames[] = {"Letter", "Double", "A4", "A3", "Custom1", "Custom2"};
static_assert(std::size(KernelPaperNames) == KernelPaperCount, "each of the engine's papers has a name");

using Ids = std::vector<long>;

Ids macroIds(const char* word1, const char* word2 = nullptr, const char* word3 = nullptr)
{
    Ids ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, word1, word2, word3);
    return ids;
}

template <typename T>
T readFinal(const StyleValue& style, const Ids& ids)
{
    ArgList args;
    style.setupGetValueArgList(ids, NoOffset, NoOffset, args);
    T value{};
    return StyleValue::returnCodeOk(StyleValue::getFinalValue(&value, args)) ? value : T();
}

template <typename T>
int writeFinal(const StyleValue& style, const Ids& ids, T value)
{
    ArgList args;
    style.setupSetValueArgList(ids, nullptr, NoOffset, NoOffset, ReplaceAssignment, args);
    return StyleValue::setFinalValue(value, args);
}

} // namespace

const char* kernelPaperName(int index)
{
    return index >= 0 && index < KernelPaperCount ? KernelPaperNames[index] : nullptr;
}

bool readKernelOrientPortrait()
{
    return readFinal<bool>(StyleValue("Paper"), macroIds("OrientPortrait"));
}

int writeKernelOrientPortrait(bool portrait)
{
    return writeFinal(StyleValue("Paper"), macroIds("OrientPortrait"), portrait);
}

std::optional<int> readKernelPaperIndex()
{
    constexpr int Unread = std::numeric_limits<int>::min();
    const int index = readStyleInteger(StyleValue("Paper"), "PaperSize", Unread);
    return index == Unread ? std::nullopt : std::optional<int>(index);
}

int writeKernelPaperIndex(int index)
{
    return writeStyleInteger(StyleValue("Paper"), "PaperSize", index);
}

double readKernelPaperLength(int index, const char* length)
{
    StringList words("GlobalPaper", "PaperSizeInfo");
    if (const char* name = kernelPaperName(index))
        words.append(name);
    return readFinal<double>(StyleValue(words), macroIds(length));
}

int writeKernelCustomPaperLength(const char* length, double inches)
{
    return writeFinal(StyleValue("Paper"), macroIds("PaperSizeInfo", kernelPaperName(KernelCustomPaper), length),
                      inches);
}

} // namespace velmora::sdk::integration
