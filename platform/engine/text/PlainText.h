#pragma once

#include <cstddef>
#include <string>

namespace velmora::engine {

constexpr std::size_t LongestLine = 1000;                  ///< characters
constexpr std::size_t LongestText = (LongestLine + 1) * 4; ///< bytes that so many characters can take

/// A text as it is shown on one line, in well-formed UTF-8: a byte that is not part of a character becomes U+FFFD, a
/// line break or tab a space, another control character its symbol. Of a text of more than `longestLine` characters the
/// beginning and an ellipsis are left.
std::string oneLine(const std::string& text);

/// The same with at most so many characters as a reader counts them: a letter and its accents are one.
std::string shortened(const std::string& text, std::size_t mostCharacters);

} // namespace velmora::engine
