#include "engine/text/PlainText.h"

#include "engine/text/Owners.h"

#include <algorithm>
#include <vector>

namespace velmora::engine {

namespace {

constexpr char Ellipsis[] = "…";

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80;
}

/// Enough to tell that the line is too long, in whole characters; the rest of a text need not be read.
std::string beginningOf(const std::string& text)
{
    constexpr std::size_t MostContinuations = 3;
    if (text.size() <= LongestText)
        return text;
    std::size_t end = LongestText;
    for (std::size_t back = 0; back < MostContinuations && isContinuation(text[end]); ++back)
        --end;
    return text.substr(0, end);
}

gunichar shownFor(gunichar character)
{
    constexpr gunichar FirstSymbol = 0x2400;
    constexpr gunichar SymbolOfDelete = 0x2421;
    switch (g_unichar_type(character)) {
    case G_UNICODE_LINE_SEPARATOR:
    case G_UNICODE_PARAGRAPH_SEPARATOR:
        return ' ';
    case G_UNICODE_CONTROL:
        break;
    default:
        return character;
    }
    if ((character >= '\t' && character <= '\r') || character == 0x85)
        return ' ';
    return character < 0x20 ? FirstSymbol + character : character == 0x7F ? SymbolOfDelete : 0xFFFD;
}

std::string withoutControls(const std::string& text)
{
    std::string shown;
    shown.reserve(text.size());
    for (const char* at = text.c_str(); *at; at = g_utf8_next_char(at)) {
        if (at[0] == '\r' && at[1] == '\n')
            continue;
        char bytes[6];
        shown.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(shownFor(g_utf8_get_char(at)), bytes)));
    }
    return shown;
}

/// Bytes of the text's first characters as a reader counts them.
std::size_t lengthOf(const std::string& text, std::size_t mostCharacters)
{
    const long codePoints = g_utf8_strlen(text.data(), static_cast<gssize>(text.size()));
    std::vector<PangoLogAttr> borders(static_cast<std::size_t>(codePoints) + 1);
    pango_get_log_attrs(text.data(), static_cast<int>(text.size()), -1, pango_language_from_string("en"),
                        borders.data(), static_cast<int>(borders.size()));
    const long last = std::min(codePoints, static_cast<long>(LongestLine));
    long end = 0;
    std::size_t characters = 0;
    for (long at = 1; at <= last && characters < mostCharacters; ++at)
        if (borders[static_cast<std::size_t>(at)].is_cursor_position) {
            end = at;
            ++characters;
        }
    if (end == 0) // one letter with more accents than there is room for
        end = last;
    return static_cast<std::size_t>(g_utf8_offset_to_pointer(text.data(), end) - text.data());
}

} // namespace

std::string oneLine(const std::string& text)
{
    const std::string beginning = beginningOf(text);
    const GTextOwner valid(g_utf8_make_valid(beginning.data(), static_cast<gssize>(beginning.size())));
    std::string line = withoutControls(valid.get());
    const long codePoints = g_utf8_strlen(line.data(), static_cast<gssize>(line.size()));
    if (codePoints <= static_cast<long>(LongestLine) && beginning.size() == text.size())
        return line;
    return line.substr(0, lengthOf(line, LongestLine)) + Ellipsis;
}

std::string shortened(const std::string& text, std::size_t mostCharacters)
{
    if (text.size() <= mostCharacters)
        return text;
    const std::string line = oneLine(text);
    const std::size_t length = lengthOf(line, mostCharacters);
    return length == line.size() ? line : line.substr(0, length) + Ellipsis;
}

} // namespace velmora::engine
