#pragma once

#include "engine/data/ByteStream.h"

#include <string>

namespace velmora::engine {

/// The bytes of a regular file.
class FileByteStream : public ByteStream {
public:
    /// Throws ReadError when there is no such file, or when it cannot be read.
    explicit FileByteStream(const std::string& fileName);
    ~FileByteStream() override;
    FileByteStream(const FileByteStream&) = delete;
    FileByteStream& operator=(const FileByteStream&) = delete;

    std::size_t read(char* buffer, std::size_t capacity) override;
    std::uint64_t size() const override { return m_size; }

private:
    void inspect();

    std::string m_fileName;
    int m_descriptor = -1;
    std::uint64_t m_size = 0;
};

} // namespace velmora::engine
