#include "engine/data/TextSource.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/BinaryFormat.h"
#include "engine/data/ByteStream.h"
#include "engine/data/DataReader.h"

#include <algorithm>
#include <cstring>

namespace velmora::engine {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t LongestQuote = 40;

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\f' || c == '\v';
}

} // namespace

TextSource::TextSource(ByteStream& stream, std::string fileName, Checkpoint& checkpoint)
    : m_stream(stream), m_decoder(stream), m_fileName(std::move(fileName)), m_checkpoint(checkpoint),
      m_block(new char[BlockSize + TextDecoder::LeastCapacity])
{
    refuseBinaryFormat();
    refill();
    skipByteOrderMark();
}

void TextSource::skipByteOrderMark()
{
    if (ahead().substr(0, ByteOrderMark.size()) == ByteOrderMark)
        m_cursor += ByteOrderMark.size();
}

void TextSource::keepFrom(std::size_t start)
{
    std::memmove(m_block.get(), m_block.get() + start, m_filled - start);
    m_filled -= start;
    m_cursor -= start;
}

void TextSource::goOn()
{
    const double all = static_cast<double>(std::max<std::uint64_t>(size(), 1));
    if (!m_checkpoint.goOn(std::min(1.0, static_cast<double>(m_decoder.taken()) / all)))
        throw ReadInterrupted();
}

/// Fills the block behind what is left of it; false when nothing came.
bool TextSource::refill()
{
    if (m_atEnd)
        return false;
    goOn();
    keepFrom(m_cursor);
    const std::size_t before = m_filled;
    while (m_filled < BlockSize && !m_atEnd) {
        const std::size_t room = std::max(BlockSize - m_filled, TextDecoder::LeastCapacity);
        const std::size_t count = m_decoder.read(m_block.get() + m_filled, room);
        m_filled += count;
        m_atEnd = count == 0;
    }
    refuseBinary(before);
    return m_filled > before;
}

void TextSource::refuseBinaryFormat() const
{
    if (const BinaryFormat* const format = binaryFormatOf(m_decoder.head()))
        fail(std::string("is ") + format->name + ", which cannot be read", format->remedy);
}

void TextSource::refuseBinary(std::size_t from) const
{
    const char* const begin = m_block.get();
    const char* const stop = begin + m_filled;
    const char* const found = std::find(begin + from, stop, '\0');
    if (found != stop) {
        fail(lineOfNext() + std::count(begin + m_cursor, found, '\n'), "there are binary data (zero bytes)",
             "Choose a text file, and save text as UTF-8");
    }
}

int TextSource::get()
{
    if (m_lineEnded) {
        ++m_line;
        m_lineEnded = false;
    }
    int c = peek();
    if (c == End)
        return End;
    ++m_cursor;
    if (c == '\r') {
        if (peek() == '\n')
            ++m_cursor;
        c = '\n';
    }
    m_lineEnded = c == '\n';
    return c;
}

std::optional<std::string_view> TextSource::lineAhead()
{
    const auto endOfLine = [this] {
        return static_cast<const char*>(std::memchr(m_block.get() + m_cursor, '\n', m_filled - m_cursor));
    };
    const char* stop = endOfLine();
    if (!stop && refill())
        stop = endOfLine();
    if (!stop)
        return std::nullopt;
    const char* const begin = m_block.get() + m_cursor;
    const auto length = static_cast<std::size_t>(stop - begin);
    const auto* const carriage = static_cast<const char*>(std::memchr(begin, '\r', length));
    if (carriage && carriage + 1 != stop)
        return std::nullopt;
    return std::string_view(begin, carriage ? length - 1 : length);
}

void TextSource::takeLineAhead(std::string_view line)
{
    m_line += m_lineEnded ? 1 : 0;
    m_lineEnded = true;
    m_cursor += line.size() + (m_block[m_cursor + line.size()] == '\r' ? 2 : 1);
}

void TextSource::skipLines(long count)
{
    while (count > 0) {
        const int c = get();
        count -= c == '\n' ? 1 : 0;
        count = c == End ? 0 : count;
    }
}

void TextSource::skipBlanks()
{
    do {
        for (; m_cursor < m_filled && isBlank(m_block[m_cursor]); ++m_cursor)
            m_line += m_block[m_cursor] == '\n' ? 1 : 0;
    } while (m_cursor == m_filled && refill());
}

std::string_view TextSource::nextWord()
{
    skipBlanks();
    std::size_t length = 0;
    do {
        const char* const begin = m_block.get() + m_cursor;
        const char* const stop = m_block.get() + m_filled;
        length = static_cast<std::size_t>(std::find_if(begin + length, stop, isBlank) - begin);
        if (length >= BlockSize) {
            fail(m_line, quotedForMessage({begin, length}) + " is longer than any number",
                 "Separate the numbers by blanks");
        }
    } while (m_cursor + length == m_filled && refill());
    m_wordStart = m_cursor;
    m_cursor += length;
    return {m_block.get() + m_wordStart, length};
}

std::uint64_t TextSource::size() const
{
    return m_stream.size();
}

std::uint64_t TextSource::remaining() const
{
    const std::uint64_t ahead = m_filled - m_cursor;
    return ahead + (size() > m_decoder.taken() ? size() - m_decoder.taken() : 0);
}

void TextSource::fail(long line, const std::string& what, const std::string& remedy) const
{
    throw ReadError("\"" + m_fileName + "\", line " + std::to_string(line) + ": " + what + ". " + remedy + ".");
}

void TextSource::fail(const std::string& what, const std::string& remedy) const
{
    throw ReadError("\"" + m_fileName + "\" " + what + ". " + remedy + ".");
}

std::string quotedForMessage(std::string_view text)
{
    std::string result = "'";
    for (const char c : text.substr(0, LongestQuote))
        result += static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? '?' : c;
    // Not through the middle of a UTF-8 character.
    if (text.size() > LongestQuote) {
        while ((static_cast<unsigned char>(result.back()) & 0xC0) == 0x80)
            result.pop_back();
        if ((static_cast<unsigned char>(result.back()) & 0xC0) == 0xC0)
            result.pop_back();
        result += "...";
    }
    return result + "'";
}

} // namespace velmora::engine
