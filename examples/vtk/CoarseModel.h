#pragma once

#include "Model.h"

#include "engine/VelContent.h"

namespace velmora::model {

/// Makes the coarse model of one that is cut into pieces: points that are near each other become one. Throws
/// content::Interrupted when `checkpoint` says to stop.
void makeCoarse(Model& model, content::Checkpoint& checkpoint);

} // namespace velmora::model
