#pragma once

class QStatusBar;

namespace viewer {

/// How long a note stands in the status bar.
constexpr int NoteMilliseconds = 8000;

/// Tells why the engine's last work failed, in a box; or in the status bar, that a person has stopped it.
void tellFailure(QStatusBar& bar);

} // namespace viewer
