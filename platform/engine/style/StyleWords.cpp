#include "engine/style/StyleWords.h"

#include <deque>
#include <unordered_map>

namespace velmora::engine::style {
namespace {

struct WordTable {
    std::unordered_map<std::string, long> ids;
    std::deque<std::string> words; ///< the word of identifier n at position n - 1; references stay valid
};

WordTable table;

} // namespace

long idOfWord(const std::string& word)
{
    const auto found = table.ids.find(word);
    if (found != table.ids.end())
        return found->second;
    table.words.push_back(word);
    const long id = static_cast<long>(table.words.size());
    table.ids.emplace(word, id);
    return id;
}

const std::string* wordOfId(long id)
{
    if (id < 1 || id > static_cast<long>(table.words.size()))
        return nullptr;
    return &table.words[static_cast<std::size_t>(id - 1)];
}

} // namespace velmora::engine::style
