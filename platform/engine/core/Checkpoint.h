#pragma once

#include "engine/VelContent.h"

namespace velmora::engine {

using content::Checkpoint;
using content::NoCheckpoint;

} // namespace velmora::engine
