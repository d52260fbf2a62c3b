#pragma once

namespace velmora::test {

/// Whether no dialog's loop waits to return. One that was answered still does while the picture is drawn inside
/// of it: the dialog and who opened it live, as children of the window.
bool isInOutermostLoop();

} // namespace velmora::test
