#pragma once

#include <string>
#include <vector>

namespace velmora::test {

/// The lines of a record of events (tests/applications/preload/EventRecorder.h) in an order, and in a
/// number, that two runs of one session have in common: during one gesture the events of each widget in
/// their order, those that wait in the toolkit's queue apart from those that come from the X server; of
/// those that the window manager, the input method or the clipboard make the toolkit repeat, the last.
std::vector<std::string> readRecord(const std::string& fileName);

} // namespace velmora::test
