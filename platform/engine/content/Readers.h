#pragma once

#include "engine/VelContent.h"

#include <memory>
#include <string>

namespace velmora::engine {

/// The content of a file, by the reader that was added last of those that recognise it, or by the engine's own. Throws
/// what readers do.
std::shared_ptr<content::Content> readContent(const std::string& fileName, content::Checkpoint& checkpoint);

} // namespace velmora::engine
