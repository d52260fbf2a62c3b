#pragma once

#include <QString>

namespace velmora::benchmark {

class Host;

// Each prints rows of the table; whether all limits were kept.

/// A grid of `side` by `side` heights: its full picture at three zooms, what a drag shows, an export, the memory it
/// takes.
bool measureGrid(Host& host, const QString& folder, int side);

/// A table against pandas' reader, where Debian's is installed, and how long the application waits for a turn
/// meanwhile.
bool measureTable(Host& host, const QString& folder, long rows);

} // namespace velmora::benchmark
