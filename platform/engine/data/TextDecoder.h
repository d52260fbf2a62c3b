#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::engine {

class ByteStream;

/// The bytes of a stream as UTF-8. UTF-16 shows by its byte order mark; what is not UTF-8 where the first byte beyond
/// ASCII stands is taken for Latin-1, with the additions that Windows has made to it.
class TextDecoder {
public:
    enum class Encoding { Ascii, Utf8, Latin1, Utf16LittleEndian, Utf16BigEndian };

    /// Reads the first few bytes.
    explicit TextDecoder(ByteStream& stream);

    /// The first bytes as they are in the stream, until the first call of `read`.
    std::string_view head() const { return m_pending; }
    /// Takes room for this many bytes at least.
    static constexpr std::size_t LeastCapacity = 16;
    /// At most `capacity` bytes; 0 only at the end.
    std::size_t read(char* buffer, std::size_t capacity);
    /// Of what has been read so far.
    Encoding encoding() const { return m_encoding; }
    /// How many bytes of the stream what has been read took.
    std::uint64_t taken() const { return m_received - m_pending.size(); }

private:
    std::size_t receive(char* buffer, std::size_t capacity);
    std::size_t readAsItIs(char* buffer, std::size_t capacity);
    std::size_t checkNewText(char* buffer, std::size_t count);
    std::size_t convert(char* buffer, std::size_t capacity);
    std::uint32_t nextCharacter(const char* bytes, std::size_t& used, std::size_t count) const;

    ByteStream& m_stream;
    std::string m_pending; ///< received, and still to be decoded
    std::uint64_t m_received = 0;
    bool m_atEnd = false; ///< of the stream
    Encoding m_encoding = Encoding::Ascii;
};

} // namespace velmora::engine
