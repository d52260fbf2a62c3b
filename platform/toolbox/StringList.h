#pragma once

#include "engine/VelExport.h"

#include <string>
#include <vector>

namespace velmora {
namespace toolbox {

/// A list of UTF-8 words, for style paths of a length known only at run time.
class VELMORA_PLATFORM_EXPORT StringList {
public:
    StringList() = default;
    /// Up to seven words; the first null ends them.
    explicit StringList(const char* word1, const char* word2 = nullptr, const char* word3 = nullptr,
                        const char* word4 = nullptr, const char* word5 = nullptr, const char* word6 = nullptr,
                        const char* word7 = nullptr);

    /// Adds a word at the end.
    void append(const std::string& word);
    /// How many words there are.
    int count() const { return static_cast<int>(m_words.size()); }
    /// The words in the order they were added.
    const std::vector<std::string>& words() const { return m_words; }

private:
    std::vector<std::string> m_words;
};

} // namespace toolbox
} // namespace velmora
