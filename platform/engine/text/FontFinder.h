#pragma once

#include <string>

namespace velmora::engine {

/// A font file and which of the faces in it.
struct FontFile {
    std::string path;
    int index = 0;
};

/// The file of "DejaVu Sans", or of the system's sans-serif font where that is not installed.
/// Throws velmora::ExceptionBase when the system has no font at all.
FontFile findFont(bool bold);

} // namespace velmora::engine
