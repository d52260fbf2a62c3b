#pragma once

#include <string>
#include <vector>

namespace velmora::ui {

/// Shows a modal file dialog and returns true when the person confirmed it. Its parent is the active
/// window or, where none is, the application's main window or another one that is shown; destroyed while
/// the dialog is open, it takes the dialog along, which counts as not confirmed. While the dialog is open
/// the cursor is an arrow where another one is in force. GUI thread only; runs a nested event loop.
///
/// `selected` receives the chosen names (UTF-8, absolute) and `filterIndex` the number of the filter
/// in force. `title` is the dialog's title. `filters` are name filters in the form
/// "Tables (*.csv *.txt)". `offered` may hold one file or folder to begin with. `multiple` lets the
/// person choose several files, which must exist; a single one may be new. `save` makes it a dialog
/// to save in, which asks before a file that exists is taken; only one then. `initialFilter` is the number of the
/// filter to begin with.
__attribute__((visibility("default"))) bool LaunchFileDialog(std::vector<std::string>& selected, int& filterIndex,
                                                             const std::string& title,
                                                             const std::vector<std::string>& filters,
                                                             const std::vector<std::string>& offered, bool multiple,
                                                             bool save, int initialFilter);

} // namespace velmora::ui
