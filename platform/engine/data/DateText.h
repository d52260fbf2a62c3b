#pragma once

#include <string_view>

namespace velmora::engine {

/// Reads a date, YYYY-MM-DD, and a time of day that may follow it after a 'T' or a blank:
/// HH:MM[:SS[.f]][Z]. Sets `days` to the days since 1970-01-01; false when the text is no such date.
bool parseDate(std::string_view text, double& days);

} // namespace velmora::engine
