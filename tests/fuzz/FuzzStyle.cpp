#include "tests/fuzz/StyleRun.h"

#include <cstdint>

using namespace velmora::engine;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text(bytes, bytes + size);
    fuzz::StyleRun run;
    for (const fuzz::StyleStep& step : fuzz::styleScript(text))
        run.carryOut(step);
    run.compare();
    return 0;
}
