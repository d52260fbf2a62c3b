#pragma once

#include <string>

namespace velmora::engine {

/// A value as a person reads it, with up to nine digits and without noughts that say nothing: "0.25", "-1500",
/// "3e-09". The same in every locale.
std::string valueText(double value);
/// With as many digits as tell it from its neighbours.
std::string valueText(float value);

} // namespace velmora::engine
