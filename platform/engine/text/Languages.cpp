#include "engine/text/Languages.h"

#include <algorithm>
#include <iterator>

namespace velmora::engine {

namespace {

struct ScriptLanguage {
    GUnicodeScript script;
    const char* language;
};

// Those that more than one language is written in; any other script stands for its one language.
constexpr ScriptLanguage Languages[] = {
    {G_UNICODE_SCRIPT_LATIN, "en"},      {G_UNICODE_SCRIPT_CYRILLIC, "ru"}, {G_UNICODE_SCRIPT_GREEK, "el"},
    {G_UNICODE_SCRIPT_ARABIC, "ar"},     {G_UNICODE_SCRIPT_HEBREW, "he"},   {G_UNICODE_SCRIPT_DEVANAGARI, "hi"},
    {G_UNICODE_SCRIPT_BENGALI, "bn"},    {G_UNICODE_SCRIPT_GURMUKHI, "pa"}, {G_UNICODE_SCRIPT_ETHIOPIC, "am"},
    {G_UNICODE_SCRIPT_TIBETAN, "bo"},    {G_UNICODE_SCRIPT_SYRIAC, "syr"},  {G_UNICODE_SCRIPT_MONGOLIAN, "mn"},
    {G_UNICODE_SCRIPT_HIRAGANA, "ja"},   {G_UNICODE_SCRIPT_KATAKANA, "ja"}, {G_UNICODE_SCRIPT_HANGUL, "ko"},
    {G_UNICODE_SCRIPT_BOPOMOFO, "zh-tw"}};

const char* languageOf(GUnicodeScript script)
{
    const auto* const found = std::find_if(std::begin(Languages), std::end(Languages),
                                           [script](const ScriptLanguage& entry) { return entry.script == script; });
    return found == std::end(Languages) ? nullptr : found->language;
}

/// Of the characters that Chinese, Japanese and Korean share: what else is in the text decides.
const char* languageOfHan(const std::string& text)
{
    for (const char* at = text.c_str(); *at; at = g_utf8_next_char(at)) {
        const GUnicodeScript script = g_unichar_get_script(g_utf8_get_char(at));
        if (script == G_UNICODE_SCRIPT_HIRAGANA || script == G_UNICODE_SCRIPT_KATAKANA ||
            script == G_UNICODE_SCRIPT_HANGUL || script == G_UNICODE_SCRIPT_BOPOMOFO)
            return languageOf(script);
    }
    return "zh-cn";
}

void addLanguage(PangoAttrList* attributes, const char* language, std::size_t begin, std::size_t end)
{
    if (!language || begin == end)
        return;
    PangoAttribute* attribute = pango_attr_language_new(pango_language_from_string(language));
    attribute->start_index = static_cast<guint>(begin);
    attribute->end_index = static_cast<guint>(end);
    pango_attr_list_insert(attributes, attribute);
}

} // namespace

// What all scripts share, digits and blanks for example, belongs to the part before it.
void addLanguages(PangoAttrList* attributes, const std::string& text)
{
    const char* const han = languageOfHan(text);
    const char* language = nullptr;
    bool isFirst = true;
    std::size_t begin = 0;
    for (const char* at = text.c_str(); *at; at = g_utf8_next_char(at)) {
        const GUnicodeScript script = g_unichar_get_script(g_utf8_get_char(at));
        if (script == G_UNICODE_SCRIPT_COMMON || script == G_UNICODE_SCRIPT_INHERITED)
            continue;
        const char* const next = script == G_UNICODE_SCRIPT_HAN ? han : languageOf(script);
        const std::size_t here = static_cast<std::size_t>(at - text.c_str());
        if (next != language && !isFirst) {
            addLanguage(attributes, language, begin, here);
            begin = here;
        }
        language = next;
        isFirst = false;
    }
    addLanguage(attributes, language, begin, text.size());
}

} // namespace velmora::engine
