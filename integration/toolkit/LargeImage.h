#pragma once

#include <QImage>
#include <cstdint>

namespace velmora::sdk::integration::toolkit {

/// Makes one large picture after another of the format RGB32. The system clears new memory before it hands it out, page
/// by page, which costs more than to read a picture back. So this asks for large pages, and takes the memory of the
/// picture before when nobody holds that any more.
class LargeImage {
public:
    /// Where the next picture is to be written, all of it, row after row without a gap. What is there before is
    /// anything. Null for an empty size and without memory.
    std::uint32_t* pixelsFor(int width, int height);
    /// What has been written. It stays as it is when the next one is made.
    QImage image() const { return m_image; }

private:
    QImage m_image;
};

} // namespace velmora::sdk::integration::toolkit
