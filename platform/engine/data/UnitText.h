#pragma once

#include <string>
#include <string_view>

namespace velmora::engine {

/// Whether a text is in brackets, is a usual unit or has what units alone have: "(m)", "hPa", "m/s", "kg m-3".
bool looksLikeUnit(std::string_view text);

/// The unit without brackets around it; "" for a lone '-'.
std::string unitOf(std::string_view text);

} // namespace velmora::engine
