#pragma once

#include <stdexcept>

namespace velmora::engine::fuzz {

/// What must hold whatever the input is. It ends a fuzzer's run, and fails a test that replays one.
inline void require(bool condition, const char* what)
{
    if (!condition)
        throw std::logic_error(what);
}

} // namespace velmora::engine::fuzz
