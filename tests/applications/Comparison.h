#pragma once

#include "tests/applications/Desktop.h"
#include "tests/applications/Program.h"

#include <iosfwd>

namespace velmora::test {

/// Records a session of a patient person with the program as it is, and plays it again with the engine
/// and its monitor in the program. The engine has nothing to do. After each gesture the screen must
/// show the same, pixel by pixel, and at the end the widgets must have had the same events. Differences
/// go to the log and the pictures to the folder. On a machine with other work to do some toolkit windows come
/// too late for a picture now and then: a difference counts that is there in three sessions. The number of
/// differences of the last.
int compare(Desktop& desktop, const Start& start, int acts, unsigned long seed, std::ostream& log);

} // namespace velmora::test
