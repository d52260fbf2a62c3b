#pragma once

#include <string_view>

namespace velmora::engine {

/// Lower case for ASCII letters, whatever the locale.
inline char toLowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether the text is `lowerCase` in any case.
inline bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase)
{
    if (text.size() != lowerCase.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (toLowerAscii(text[i]) != lowerCase[i])
            return false;
    return true;
}

} // namespace velmora::engine
