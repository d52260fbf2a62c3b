#pragma once

#include <map>
#include <string>

namespace velmora::test {

/// How many OpenGL objects of each kind ("textures", "buffers", …) and contexts this process has.
/// Objects go with the last context that shares them. The program must export its symbols: its own
/// entry points are found before the libraries', and hand out counting ones. Thread-safe.
std::map<std::string, long> glCounts();

} // namespace velmora::test
