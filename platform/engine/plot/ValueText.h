#pragma once

#include <string>

namespace velmora::engine {

/// A value as a person reads it, with up to nine digits and without noughts that say nothing: "0.25", "-1500",
/// "3e-09". The same in every locale.
std::string valueText(double value);
/// With as many digits as tell it from its neighbours.
std::string valueText(float value);

/// Days since 1970-01-01 as a date, with the time of day where there is one: "1970-03-05", "1970-03-05 06:30",
/// "1970-03-05 06:30:15". A number of days where that is no date of some two thousand years each way.
std::string dateText(double days);

} // namespace velmora::engine
