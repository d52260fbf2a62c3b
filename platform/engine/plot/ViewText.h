#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace velmora::engine {

/// A view as a text: the kind of plot, then numbers in the shortest texts that are read as the same numbers again.
std::string viewText(const char* kind, std::initializer_list<double> numbers);
/// The numbers of such a text; none when it is no view of that kind.
std::vector<double> numbersOfView(const std::string& text, const std::string& kind);

} // namespace velmora::engine
