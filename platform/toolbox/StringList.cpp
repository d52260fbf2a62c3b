#include "toolbox/StringList.h"

#include "toolbox/Words.h"

namespace velmora::toolbox {

StringList::StringList(const char* word1, const char* word2, const char* word3, const char* word4, const char* word5,
                       const char* word6, const char* word7)
    : m_words(wordsUpToNull({word1, word2, word3, word4, word5, word6, word7}))
{}

void StringList::append(const std::string& word)
{
    m_words.push_back(word);
}

} // namespace velmora::toolbox
