#pragma once

#include <map>
#include <string>

namespace velmora::test::model {

/// The values of the state of the current context that a drawing may touch, by their names.
std::map<std::string, std::string> openGLState();

} // namespace velmora::test::model
