#pragma once

#include <cstddef>
#include <cstdint>

namespace velmora::engine {

/// Where the bytes of a data set come from.
class ByteStream {
public:
    virtual ~ByteStream() = default;

    /// Reads up to `capacity` bytes and returns how many there were; 0 only at the end. Throws
    /// ReadError.
    virtual std::size_t read(char* buffer, std::size_t capacity) = 0;

    /// Bytes from the first to the last, as far as known before reading.
    virtual std::uint64_t size() const = 0;
};

} // namespace velmora::engine
