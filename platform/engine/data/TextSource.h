#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/TextDecoder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::engine {

class ByteStream;

/// The text of a data file, handed out in characters or in words from one block of fixed size, so
/// that a file of any length needs little memory.
///
/// Each new block asks `checkpoint` to go on: whatever is done with one block (a fifth of a millisecond or two) is
/// one portion of work. Refuses binary data. The text comes as UTF-8, however it is encoded. Line ends are LF, CRLF or
/// CR.
class TextSource {
public:
    static constexpr std::size_t BlockSize = std::size_t{32} * 1024;
    static constexpr int End = -1;

    /// Reads the first block and leaves out a byte order mark. Throws ReadError for a known format that is no text.
    TextSource(ByteStream& stream, std::string fileName, Checkpoint& checkpoint);

    /// What comes next, as far as it is in memory. At the start that is the whole first block.
    std::string_view ahead() const { return {m_block.get() + m_cursor, m_filled - m_cursor}; }
    /// Whether `ahead()` reaches to the end of the text.
    bool isAllAhead() const { return m_atEnd; }

    int peek() { return m_cursor < m_filled || refill() ? static_cast<unsigned char>(m_block[m_cursor]) : End; }
    /// The next character, every line end as one '\n'; `end` after the last.
    int get();

    /// The next run of characters without blanks and line ends, valid until the next call; empty
    /// after the last.
    std::string_view nextWord();
    /// Hands the word that came last out once more.
    void putWordBack() { m_cursor = m_wordStart; }

    /// The rest of the line that comes next, without its end, when all of it is in memory and ends with LF or
    /// CRLF; else nothing, and the line is to be read character by character. It is empty for an empty line.
    std::optional<std::string_view> lineAhead();
    /// Passes over that line and its end.
    void takeLineAhead(std::string_view line);

    /// Passes over so many lines.
    void skipLines(long count);

    /// Asks whether to go on, for work on what was read. Throws ReadInterrupted.
    void goOn();

    /// Of the character or word that came last, counted from 1.
    long line() const { return m_line; }
    long lineOfNext() const { return m_line + (m_lineEnded ? 1 : 0); }
    /// Bytes from here to the end, and how many there are in all.
    std::uint64_t remaining() const;
    std::uint64_t size() const;
    const std::string& fileName() const { return m_fileName; }
    /// Of what has been read so far.
    TextDecoder::Encoding encoding() const { return m_decoder.encoding(); }

    /// Throws ReadError: where, what is wrong and what helps.
    [[noreturn]] void fail(long line, const std::string& what, const std::string& remedy) const;
    /// The same about the file as a whole.
    [[noreturn]] void fail(const std::string& what, const std::string& remedy) const;

private:
    bool refill();
    void keepFrom(std::size_t start);
    void refuseBinary(std::size_t from) const;
    void refuseBinaryFormat() const;
    void skipByteOrderMark();
    void skipBlanks();

    ByteStream& m_stream;
    TextDecoder m_decoder;
    std::string m_fileName;
    Checkpoint& m_checkpoint;
    std::unique_ptr<char[]> m_block;
    std::size_t m_cursor = 0;
    std::size_t m_filled = 0;
    std::size_t m_wordStart = 0;
    long m_line = 1;
    bool m_lineEnded = false; ///< the character that came last was a line end
    bool m_atEnd = false;
};

/// The text in quotes, cut short and without control characters, for a message.
std::string quotedForMessage(std::string_view text);

} // namespace velmora::engine
