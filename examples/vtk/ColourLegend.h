#pragma once

#include "ModelView.h"

#include "engine/VelContent.h"

class vtkScalarsToColors;

namespace velmora::model {

/// From the least value, dark, to the greatest, bright; grey where there is no number.
vtkSmartPointer<vtkScalarsToColors> coloursFor(const Colouring& colouring);

/// Draws which colour stands for which value, at the right of the frame. The viewport is the whole target.
void drawLegend(const Colouring& colouring, const content::Drawing& drawing);

} // namespace velmora::model
