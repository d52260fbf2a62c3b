#pragma once

#include "engine/data/ByteStream.h"

#include <algorithm>
#include <string_view>

namespace velmora::engine {

/// Bytes in memory, which must outlive the stream.
class MemoryByteStream : public ByteStream {
public:
    explicit MemoryByteStream(std::string_view bytes) : m_size(bytes.size()), m_rest(bytes) {}

    std::size_t read(char* buffer, std::size_t capacity) override
    {
        const std::size_t count = m_rest.copy(buffer, capacity);
        m_rest.remove_prefix(count);
        return count;
    }
    std::uint64_t size() const override { return m_size; }

private:
    std::uint64_t m_size;
    std::string_view m_rest;
};

} // namespace velmora::engine
