#pragma once

namespace velmora::engine {

/// Whether the engine has been started and not stopped since.
bool isRunning();
void setRunning(bool running);
/// The same, and sets the last error when it is not: for entry points that need a started engine.
bool requireRunning();

} // namespace velmora::engine
