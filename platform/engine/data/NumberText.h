#pragma once

#include <string_view>

namespace velmora::engine {

enum class NumberText {
    Number,
    TooLarge,  ///< a number, but beyond what the type holds
    NotFinite, ///< "nan" or "inf" in any spelling
    Word       ///< anything else
};

/// Reads the whole text as one decimal number (float or double), with a decimal point whatever the
/// locale. A number too small for the type is 0. `value` is set for Number only.
template <class Real>
NumberText parseNumber(std::string_view text, Real& value);

extern template NumberText parseNumber(std::string_view, float&);
extern template NumberText parseNumber(std::string_view, double&);

} // namespace velmora::engine
