#include "tests/fuzz/StyleScript.h"

#include <cstdlib>

namespace velmora::engine::fuzz {
namespace {

std::string_view takeUpTo(char end, std::string_view& rest)
{
    const std::string_view::size_type length = rest.find(end);
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(length == std::string_view::npos ? rest.size() : length + 1);
    return taken;
}

long wholeNumber(const std::string& text)
{
    return std::strtol(text.c_str(), nullptr, 0); // at the ends of the range: the nearest there is
}

StyleStep step(std::string_view line)
{
    StyleStep result;
    const std::string_view operation = takeUpTo(' ', line);
    if (!operation.empty())
        result.operation = operation[0];
    if (operation.size() > 1 && operation[1] >= '0' && operation[1] <= '9')
        result.texts = static_cast<std::size_t>(operation[1] - '0');
    result.number = wholeNumber(std::string(takeUpTo(' ', line)));
    result.value = takeUpTo(' ', line);
    while (!line.empty())
        result.words.emplace_back(takeUpTo('/', line));
    return result;
}

} // namespace

std::vector<StyleStep> styleScript(std::string_view text)
{
    std::vector<StyleStep> steps;
    while (!text.empty())
        steps.push_back(step(takeUpTo('\n', text)));
    return steps;
}

double realValue(const StyleStep& step)
{
    return std::strtod(step.value.c_str(), nullptr);
}

long wholeValue(const StyleStep& step)
{
    return wholeNumber(step.value);
}

} // namespace velmora::engine::fuzz
