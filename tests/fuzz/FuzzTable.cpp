#include "tests/fuzz/ReadSupport.h"

#include <cmath>
#include <cstdint>
#include <string>

using namespace velmora::engine;

namespace {

void check(const Table& table)
{
    fuzz::require(table.columns.size() >= 2, "there are two columns at least");
    for (const Column& column : table.columns) {
        fuzz::require(column.values.size() == table.columns[0].values.size(), "all columns are as long");
        fuzz::require(!column.name.empty(), "every column has a name");
        for (const double value : column.values) {
            fuzz::require(!std::isinf(value), "no value is infinite");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text(bytes, bytes + size);
    const auto data = fuzz::read(text);
    if (data && std::holds_alternative<std::shared_ptr<const Table>>(*data)) {
        check(*std::get<std::shared_ptr<const Table>>(*data));
    }
    return 0;
}
