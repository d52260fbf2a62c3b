#pragma once

#include <string>
#include <variant>
#include <vector>

namespace velmora::engine::style {

/// A style value: one of the four types that a path may hold.
using Value = std::variant<bool, long, double, std::string>;

/// A path of the style tree ("Paper/PaperSize") with the value it starts with. Numbers from
/// `minimum` to `maximum` are allowed.
struct StyleDefault {
    std::string path;
    Value value;
    double minimum;
    double maximum;
};

/// Every path there is.
std::vector<StyleDefault> styleDefaults();

} // namespace velmora::engine::style
