#pragma once

#include "tests/platform/page/FakeArea.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// An off-screen image service whose images are software surfaces, registered with the engine for
/// its own life. Like the real one it reads an image back as a whole at the first row that is asked
/// for, and keeps that until an image, or none, is destroyed.
class FakeImageService {
public:
    FakeImageService();
    ~FakeImageService();
    FakeImageService(const FakeImageService&) = delete;
    FakeImageService& operator=(const FakeImageService&) = delete;

    // ---- steering
    int largestSide = 16384; ///< imageCreate throws above it
    bool createsNull = false;
    bool contextWorks = true;
    int rowsReadable = 1 << 30; ///< reading the rows from this one on fails
    bool answersAlways = false; ///< `render` says true whatever became of it, as a pixmap does
    int sizeError = 0;          ///< pixels that images are wider than asked for

    // ---- what happened
    std::vector<std::pair<int, int>> created; ///< sizes
    std::vector<std::pair<int, int>> drawn;   ///< the same, of each drawing
    int alive = 0;
    int mostAlive = 0;

private:
    class Image;
    static sdk::integration::OffscreenImageInterface* create(int width, int height, int strategy, long self);
    static int readRow(sdk::integration::OffscreenImageInterface* image, int row, unsigned char* red,
                       unsigned char* green, unsigned char* blue, long self);
    static void destroy(sdk::integration::OffscreenImageInterface* image, long self);

    std::vector<unsigned char> m_cached;
};

} // namespace velmora::test
