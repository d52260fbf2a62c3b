#pragma once

namespace velmora::tests {

/// How often this program has allocated with `new`.
long allocationCount();

} // namespace velmora::tests
