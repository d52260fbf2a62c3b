#pragma once

#include "engine/core/Breath.h"
#include "engine/data/DataReader.h"
#include "engine/data/MemoryByteStream.h"
#include "tests/fuzz/FuzzSupport.h"

#include <optional>
#include <string_view>

namespace velmora::engine::fuzz {

class OneBreath final : public Breath {
public:
    bool goOn(double) override { return true; }
};

/// What the bytes are read as; nothing when they are refused. Every other exception ends the run.
inline std::optional<DataSet> read(std::string_view text)
{
    MemoryByteStream stream(text);
    OneBreath breath;
    try {
        return readData(stream, "fuzz", breath);
    } catch (const ReadError&) {
        return std::nullopt;
    }
}

} // namespace velmora::engine::fuzz
