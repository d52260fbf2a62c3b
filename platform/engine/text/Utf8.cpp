#include "engine/text/Utf8.h"

namespace velmora::engine {

namespace {

struct Lead {
    std::size_t length; ///< 0: not a lead byte
    char32_t bits;
    char32_t smallest; ///< that needs this length
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0)
        return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte < 0xF5)
        return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

bool isSurrogate(char32_t character)
{
    return character >= 0xD800 && character < 0xE000;
}

/// The character at `at` and its length; length 0 when it is not well formed.
Lead characterAt(const std::string& text, std::size_t at)
{
    Lead lead = leadOf(static_cast<unsigned char>(text[at]));
    if (at + lead.length > text.size())
        return {0, 0, 0};
    for (std::size_t i = 1; i < lead.length; ++i) {
        const unsigned char byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0u) != 0x80)
            return {0, 0, 0};
        lead.bits = (lead.bits << 6) | (byte & 0x3Fu);
    }
    if (lead.bits < lead.smallest || lead.bits > 0x10FFFF || isSurrogate(lead.bits))
        return {0, 0, 0};
    return lead;
}

} // namespace

std::u32string decodeUtf8(const std::string& text)
{
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Lead found = characterAt(text, at);
        characters.push_back(found.length ? found.bits : U'\uFFFD');
        at += found.length ? found.length : 1;
    }
    return characters;
}

} // namespace velmora::engine
