#pragma once

namespace velmora::engine {

/// Keeps for VelUtilWasInterrupted() whether the work that is ending was asked to stop.
void noteInterruption(bool interrupted);
bool wasInterrupted();

} // namespace velmora::engine
