#pragma once

#include "engine/plot/Ticks.h"

namespace velmora::engine {

/// Ticks of an axis of days since 1970-01-01, at whole years, months, days or times of day:
/// "1970", "1970-03", "1970-03-05", "06:30", "06:30:00.125". The first one names the day as well. At most `most` + 1.
std::vector<Tick> dateTicks(const AxisRange& range, int most);

} // namespace velmora::engine
