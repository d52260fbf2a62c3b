#pragma once

#include <string>

struct VelArgList;

namespace velmora::engine::style {

/// The path ("Paper/PaperSize") that the list of a read or write names; a StyleCode_e. No path of
/// this tree is indexed, so an offset is refused.
int pathOf(const VelArgList* arguments, std::string& path);
/// Whether a write asks for more than to replace the one value: a StyleCode_e.
int checkAssignment(const VelArgList* arguments);

} // namespace velmora::engine::style
