#pragma once

#include <string>

namespace velmora::engine {

/// The characters of a UTF-8 text. Each byte that is not part of a well-formed character becomes
/// U+FFFD, so that a damaged text still shows.
std::u32string decodeUtf8(const std::string& text);

} // namespace velmora::engine
