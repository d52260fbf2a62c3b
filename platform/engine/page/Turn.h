#pragma once

namespace velmora::engine {

/// One of the engine's own turns: draws what waits while the application goes on as it likes. False when nothing
/// waits, or when this is no time for it; then the turn is asked for again.
bool takeTurn();

/// Draws all that waits as work that the application can stop. False with the reason in the last error.
bool finishAll();

} // namespace velmora::engine
