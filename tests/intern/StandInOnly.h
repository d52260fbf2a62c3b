#pragma once

#include <functional>

namespace velmora::test {

// This program's connect() refuses the place where a real daemon of the 3D mice would listen, where libspnav looks when
// SPNAV_SOCKET leads nowhere, so that a test means the same on a machine that has one.

/// Called when the library has connected and before it has written anything; null: nothing.
void setOnConnected(std::function<void()> connected);

} // namespace velmora::test
