#pragma once

#include <QString>

namespace velmora::benchmark {

/// An ESRI ASCII grid of a hilly island, `side` by `side` heights.
void writeGrid(const QString& fileName, int side);

/// A table of four columns of numbers: the row's number, two waves and a slope.
void writeTable(const QString& fileName, long rows);

} // namespace velmora::benchmark
