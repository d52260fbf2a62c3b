#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/MemoryByteStream.h"
#include "tests/fuzz/FuzzSupport.h"

#include <optional>
#include <string_view>

namespace velmora::engine::fuzz {

/// What the bytes are read as; nothing when they are refused. Every other exception ends the run.
inline std::optional<DataSet> read(std::string_view text)
{
    MemoryByteStream stream(text);
    NoCheckpoint checkpoint;
    try {
        return readData(stream, "fuzz", checkpoint);
    } catch (const ReadError&) {
        return std::nullopt;
    }
}

} // namespace velmora::engine::fuzz
