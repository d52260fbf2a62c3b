#pragma once

#include <string>

namespace velmora::engine {

/// Whether the engine has been started and not stopped since.
bool isRunning();
/// The same, and sets the last error when it is not: for entry points that need a started engine.
bool requireRunning();
/// As given to VelEngStart.
const std::string& homeDirectory();
const std::string& applicationName();

} // namespace velmora::engine
