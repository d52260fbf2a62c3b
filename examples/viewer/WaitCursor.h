#pragma once

#include "engine/VelEng.h"

namespace viewer {

/// Shows the wait cursor for as long as it lives.
class WaitCursor {
public:
    WaitCursor() { VelEngWaitCursorActivate(1); }
    ~WaitCursor() { VelEngWaitCursorActivate(0); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace viewer
