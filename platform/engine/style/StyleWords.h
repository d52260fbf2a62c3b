#pragma once

#include <string>

namespace velmora::engine::style {

/// The macro identifier of a word: a number above 0, given when the word is first asked for and
/// the same for the rest of the process.
long idOfWord(const std::string& word);
/// The word of an identifier, or null when no word has it. Stays valid.
const std::string* wordOfId(long id);

} // namespace velmora::engine::style
