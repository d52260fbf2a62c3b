#pragma once

#include <stdexcept>
#include <string>

namespace velmora::sdk::integration::services {

/// The text of a pointer that must not be null. Throws std::logic_error for null with what the
/// standard library says when a string is made from it; not every version of that library does.
inline std::string requiredText(const char* text)
{
    if (!text)
        throw std::logic_error("basic_string::_M_construct null not valid");
    return text;
}

} // namespace velmora::sdk::integration::services
