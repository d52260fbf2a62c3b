#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace velmora::toolbox {

/// The words before the first null.
inline std::vector<std::string> wordsUpToNull(std::initializer_list<const char*> words)
{
    std::vector<std::string> result;
    for (const char* word : words) {
        if (!word)
            break;
        result.emplace_back(word);
    }
    return result;
}

} // namespace velmora::toolbox
