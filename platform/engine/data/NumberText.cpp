#include "engine/data/NumberText.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace velmora::engine {

namespace {

/// Of a number that does not fit: whether it is too small rather than too large. A negative
/// exponent, or without one nothing but zeros before the point, make it small.
bool isTiny(std::string_view text)
{
    const std::size_t exponent = text.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return text[exponent + 1] == '-';
    const std::size_t first = text.find_first_of("123456789.");
    return first != std::string_view::npos && text[first] == '.';
}

} // namespace

template <class Real>
NumberText parseNumber(std::string_view text, Real& value)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Real result = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, result);
    if (read.ptr != end || read.ec == std::errc::invalid_argument)
        return NumberText::Word;
    if (read.ec == std::errc::result_out_of_range) {
        if (!isTiny(text))
            return NumberText::TooLarge;
        result = 0;
    }
    if (!std::isfinite(result))
        return NumberText::NotFinite;
    value = result;
    return NumberText::Number;
}

template NumberText parseNumber(std::string_view, float&);
template NumberText parseNumber(std::string_view, double&);

} // namespace velmora::engine
