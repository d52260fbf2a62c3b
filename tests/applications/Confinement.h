#pragma once

#include <string>

namespace velmora::test {

/// Whether the kernel can keep a process from writing to files (Landlock, Linux 5.13).
bool canConfine();

/// From now on this process and what it starts can write below the folder and to devices, and nowhere
/// else, though it may be root's. False when that is impossible.
bool confineWritingTo(const std::string& folder);

} // namespace velmora::test
