#pragma once

#include "Model.h"

#include "engine/VelContent.h"

namespace velmora::model {

/// Cuts the surface into pieces, with the values that colour it. Throws content::Interrupted when `checkpoint` says to
/// stop.
void cutIntoPieces(vtkPolyData& surface, Model& model, content::Checkpoint& checkpoint);

/// Chooses what the surface is coloured with, and adds a line for each of its arrays.
void describeArrays(vtkPolyData& surface, Model& model);

} // namespace velmora::model
