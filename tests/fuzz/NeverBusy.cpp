// The style tree needs no engine at work; in its place, what the probe steers of one.

#include "engine/core/Busy.h"

namespace velmora::engine {

void forceBusy(bool) {}
void forgetForcedBusy() {}

} // namespace velmora::engine
