#pragma once

#include <string>

namespace velmora::engine {

/// What an error number of a file operation means for a file that is to be written, and what helps.
std::string fileErrorText(int error);

} // namespace velmora::engine
