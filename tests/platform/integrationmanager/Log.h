#pragma once

#include <string>
#include <vector>

namespace velmora::tests {

/// What happened, in order.
using Log = std::vector<std::string>;

} // namespace velmora::tests
