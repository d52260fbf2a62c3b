#pragma once

#include <string_view>

namespace velmora::engine {

/// A format that is often chosen but is no text of numbers.
struct BinaryFormat {
    std::string_view begin;
    const char* name;   ///< with its article
    const char* remedy; ///< what to do instead, without a full stop
};

/// The known format that begins like this; null for none.
const BinaryFormat* binaryFormatOf(std::string_view begin);

} // namespace velmora::engine
