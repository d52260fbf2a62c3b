#pragma once

#include <stdexcept>

namespace velmora::engine {

/// An export that cannot go on. The text is for a person, in whole sentences: what is wrong, and what
/// helps.
class ExportFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An image of this size is not to be had, or cannot be drawn into or read back; a smaller one may
/// be. The text is that of the part that refused it.
class ImageRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Somebody asked the export to stop.
struct ExportInterrupted {};

} // namespace velmora::engine
