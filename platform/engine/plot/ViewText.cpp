#include "engine/plot/ViewText.h"

#include <array>
#include <charconv>

namespace velmora::engine {

std::string viewText(const char* kind, std::initializer_list<double> numbers)
{
    std::string text = kind;
    for (const double number : numbers) {
        std::array<char, 40> buffer{};
        const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
        text += ' ' + std::string(buffer.data(), written.ptr);
    }
    return text;
}

std::vector<double> numbersOfView(const std::string& text, const std::string& kind)
{
    if (text.compare(0, kind.size(), kind) != 0)
        return {};
    std::vector<double> numbers;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data() + kind.size(); at != end;) {
        double number = 0;
        if (*at != ' ')
            return {};
        const auto read = std::from_chars(at + 1, end, number);
        if (read.ec != std::errc())
            return {};
        numbers.push_back(number);
        at = read.ptr;
    }
    return numbers;
}

} // namespace velmora::engine
