#pragma once

namespace viewer {

struct Options;

/// Draws the file of the options, writes what the screen shows of it and returns the exit code. What
/// goes wrong is told on standard error.
int takeSnapshot(const Options& options);

} // namespace viewer
