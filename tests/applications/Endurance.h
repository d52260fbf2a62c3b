#pragma once

#include "tests/applications/Desktop.h"
#include "tests/applications/Program.h"

#include <iosfwd>

namespace velmora::test {

/// Lets a hasty person use the program while its engine works every two seconds, and from time to time
/// looks at it at rest. Writes what happens to the log; the number of things that were found wrong.
/// It stops at the first of them: what comes later may follow from it.
int endure(Desktop& desktop, const Start& start, double seconds, unsigned long seed, std::ostream& log);

} // namespace velmora::test
