#pragma once

#include "interfaces/EventInterface.h"

#include <Qt>

namespace velmora::sdk::integration::intern {

/// The engine's modifier mask for the toolkit's modifiers: 1 Shift, 2 Control, 4 Alt.
inline int modifierMask(Qt::KeyboardModifiers held)
{
    return ((held & Qt::ShiftModifier) ? EventInterface::Modifier_Shift : 0) |
           ((held & Qt::ControlModifier) ? EventInterface::Modifier_Control : 0) |
           ((held & Qt::AltModifier) ? EventInterface::Modifier_Alt : 0);
}

} // namespace velmora::sdk::integration::intern
