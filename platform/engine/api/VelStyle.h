#pragma once

// The engine's style tree as the toolbox uses it. An argument list names the path: its words as
// texts "Word1", "Word2", …, then as macro identifiers "MacroID1", "MacroID2", …; a text counts
// first. It also says "Offset1" and "Offset2" (-1: none) and, for a write, "Set" (0: all) and
// "AssignOp" (255: replace what is there). All results are StyleCode_e values. GUI thread only;
// works without a started engine.

#include "engine/VelExport.h"

struct VelArgList;

extern "C" {

/// The macro identifier of a word, above 0; every word has one, whether or not a path uses it.
VELMORA_PLATFORM_EXPORT long VelStyleWordId(const char* word);

/// The value stays as it is when the read fails. Only a path of that very type has a value.
VELMORA_PLATFORM_EXPORT int VelStyleGetBool(const VelArgList* arguments, bool* value);
VELMORA_PLATFORM_EXPORT int VelStyleGetDouble(const VelArgList* arguments, double* value);
VELMORA_PLATFORM_EXPORT int VelStyleSetBool(const VelArgList* arguments, bool value);
VELMORA_PLATFORM_EXPORT int VelStyleSetDouble(const VelArgList* arguments, double value);

/// Reads into the pointer "IValue" (whole numbers, and 0 or 1 for truth values) or "DValue"
/// (doubles) of the list.
VELMORA_PLATFORM_EXPORT int VelStyleGetLowLevel(const VelArgList* arguments);
/// Writes the value that the list carries: "IValue" to whole numbers and truth values (not 0 is
/// true), "DValue" to doubles, "SValue" to texts. The others are not looked at.
VELMORA_PLATFORM_EXPORT int VelStyleSetLowLevel(const VelArgList* arguments);

} // extern "C"
