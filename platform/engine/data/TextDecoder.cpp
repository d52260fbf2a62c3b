#include "engine/data/TextDecoder.h"

#include "engine/data/ByteStream.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace velmora::engine {

namespace {

constexpr std::size_t HeadSize = 64;
constexpr std::size_t LongestCharacter = 4; ///< in UTF-8
constexpr std::uint32_t Replacement = 0xFFFD;
constexpr std::uint8_t FirstOfWindows = 0x80;

/// What Windows has put where Latin-1 has control characters.
constexpr std::array<std::uint16_t, 32> WindowsCharacters = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

std::uint32_t byteAt(const char* bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

/// Eight at a time: nearly all text of data files is ASCII.
std::size_t lengthOfAscii(const char* bytes, std::size_t count)
{
    std::size_t length = 0;
    for (std::uint64_t eight = 0; length + sizeof eight <= count; length += sizeof eight) {
        std::memcpy(&eight, bytes + length, sizeof eight);
        if ((eight & 0x8080808080808080U) != 0)
            break;
    }
    while (length < count && byteAt(bytes, length) < 0x80)
        ++length;
    return length;
}

/// How long the UTF-8 character is that a byte begins; 0 when none can begin with it.
std::size_t lengthOfCharacter(std::uint32_t byte)
{
    if (byte >= 0xC2 && byte < 0xE0)
        return 2;
    if (byte >= 0xE0 && byte < 0xF0)
        return 3;
    return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

std::size_t append(std::uint32_t character, char* to)
{
    if (character < 0x80) {
        to[0] = static_cast<char>(character);
        return 1;
    }
    const std::size_t length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    for (std::size_t i = length; i-- > 1; character >>= 6)
        to[i] = static_cast<char>(0x80 | (character & 0x3F));
    constexpr std::array<std::uint32_t, 5> Marks = {0, 0, 0xC0, 0xE0, 0xF0};
    to[0] = static_cast<char>(Marks[length] | character);
    return length;
}

} // namespace

TextDecoder::TextDecoder(ByteStream& stream) : m_stream(stream)
{
    std::array<char, HeadSize> bytes{};
    std::size_t count = 1;
    while (m_pending.size() < bytes.size() && count > 0) {
        count = m_stream.read(bytes.data(), bytes.size() - m_pending.size());
        m_pending.append(bytes.data(), count);
    }
    m_received = m_pending.size();
    const bool isLittle = m_pending.compare(0, 2, "\xFF\xFE") == 0;
    if (isLittle || m_pending.compare(0, 2, "\xFE\xFF") == 0)
        m_encoding = isLittle ? Encoding::Utf16LittleEndian : Encoding::Utf16BigEndian;
}

std::size_t TextDecoder::read(char* buffer, std::size_t capacity)
{
    if (m_encoding == Encoding::Ascii || m_encoding == Encoding::Utf8) {
        const std::size_t count = readAsItIs(buffer, capacity);
        if (count > 0 || m_encoding != Encoding::Latin1)
            return count;
    }
    return convert(buffer, capacity);
}

std::size_t TextDecoder::receive(char* buffer, std::size_t capacity)
{
    const std::size_t before = m_pending.copy(buffer, capacity);
    m_pending.erase(0, before);
    if (before == capacity)
        return before;
    const std::size_t count = m_stream.read(buffer + before, capacity - before);
    m_atEnd = count == 0;
    m_received += count;
    return before + count;
}

/// 0 at the end, and where Latin-1 begins.
std::size_t TextDecoder::readAsItIs(char* buffer, std::size_t capacity)
{
    for (;;) {
        const std::size_t count = receive(buffer, capacity);
        if (count == 0 || m_encoding == Encoding::Utf8)
            return count;
        const std::size_t checked = checkNewText(buffer, count);
        if (checked > 0 || m_encoding == Encoding::Latin1)
            return checked;
    }
}

/// Looks for the first byte beyond ASCII, which tells the encoding. What is not to be handed out yet is kept; the
/// length of the rest.
std::size_t TextDecoder::checkNewText(char* buffer, std::size_t count)
{
    const std::size_t ascii = lengthOfAscii(buffer, count);
    if (ascii == count)
        return count;
    const std::size_t length = lengthOfCharacter(byteAt(buffer, ascii));
    const std::size_t seen = std::min(length, count - ascii);
    std::size_t right = 1;
    while (right < seen && (byteAt(buffer, ascii + right) & 0xC0) == 0x80)
        ++right;
    if (length > 0 && right == length) {
        m_encoding = Encoding::Utf8;
        return count;
    }
    if (length == 0 || right < seen || m_atEnd)
        m_encoding = Encoding::Latin1;
    m_pending.insert(0, buffer + ascii, count - ascii);
    return ascii;
}

std::size_t TextDecoder::convert(char* buffer, std::size_t capacity)
{
    std::array<char, 4096> bytes{};
    const std::size_t width = m_encoding == Encoding::Latin1 ? 1 : 2;
    std::size_t count = 0;
    std::size_t added = 1;
    // Two bytes of UTF-16, and one of Latin-1, become three at the most.
    const std::size_t wanted = std::min(bytes.size(), std::max(capacity / 3, std::size_t{1}) * width);
    while (count < 2 * width && added > 0) {
        added = receive(bytes.data() + count, wanted - count);
        count += added;
    }
    std::size_t used = 0;
    std::size_t length = 0;
    while (used + width <= count && length + LongestCharacter <= capacity) {
        if (used > 0 && used + width == count && added > 0)
            break; // half a pair, perhaps
        length += append(nextCharacter(bytes.data(), used, count), buffer + length);
    }
    m_pending.insert(0, bytes.data() + used, count < width ? 0 : count - used);
    return length;
}

/// Half a pair of UTF-16 becomes a replacement character.
std::uint32_t TextDecoder::nextCharacter(const char* bytes, std::size_t& used, std::size_t count) const
{
    if (m_encoding == Encoding::Latin1) {
        const std::uint32_t byte = byteAt(bytes, used++);
        const bool isOfWindows = byte >= FirstOfWindows && byte < FirstOfWindows + WindowsCharacters.size();
        return isOfWindows ? WindowsCharacters[byte - FirstOfWindows] : byte;
    }
    const std::size_t low = m_encoding == Encoding::Utf16LittleEndian ? 0 : 1;
    const auto unitAt = [&](std::size_t at) { return byteAt(bytes, at + low) | (byteAt(bytes, at + 1 - low) << 8); };
    const std::uint32_t unit = unitAt(used);
    used += 2;
    if (unit < 0xD800 || unit > 0xDFFF)
        return unit;
    const std::uint32_t second = used + 2 <= count ? unitAt(used) : 0;
    if (unit > 0xDBFF || second < 0xDC00 || second > 0xDFFF)
        return Replacement;
    used += 2;
    return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
}

} // namespace velmora::engine
