#pragma once

// Argument lists as they cross the engine's boundary: named values in the order they were appended.
// Names and texts are copied; the targets of pointers stay the caller's and must outlive the call
// that uses the list. A name that was appended twice counts with its last value. Works without a
// started engine.

#include "engine/VelExport.h"

struct VelArgList;

extern "C" {

VELMORA_PLATFORM_EXPORT VelArgList* VelArgListCreate();
/// Null is ignored.
VELMORA_PLATFORM_EXPORT void VelArgListDestroy(VelArgList* list);
VELMORA_PLATFORM_EXPORT void VelArgListClear(VelArgList* list);

// ---- appending; may throw velmora::ExceptionBase or std::bad_alloc, and then has appended nothing

VELMORA_PLATFORM_EXPORT void VelArgListAppendInt(VelArgList* list, const char* name, int value);
VELMORA_PLATFORM_EXPORT void VelArgListAppendDouble(VelArgList* list, const char* name, double value);
/// A null text is appended as "".
VELMORA_PLATFORM_EXPORT void VelArgListAppendString(VelArgList* list, const char* name, const char* value);
VELMORA_PLATFORM_EXPORT void VelArgListAppendArbParam(VelArgList* list, const char* name, long value);
VELMORA_PLATFORM_EXPORT void VelArgListAppendArbParamPtr(VelArgList* list, const char* name, long* value);
VELMORA_PLATFORM_EXPORT void VelArgListAppendDoublePtr(VelArgList* list, const char* name, double* value);

// ---- looking at a list

VELMORA_PLATFORM_EXPORT int VelArgListCount(const VelArgList* list);
/// The name at a position from 0, or null. Valid until the list changes.
VELMORA_PLATFORM_EXPORT const char* VelArgListNameAt(const VelArgList* list, int position);

// ---- by name: 1 when the list holds a value of a fitting type, else 0 and `value` stays as it is.
// ---- A whole number fits where a double is asked for; nothing else is converted.

VELMORA_PLATFORM_EXPORT int VelArgListGetLong(const VelArgList* list, const char* name, long* value);
VELMORA_PLATFORM_EXPORT int VelArgListGetDouble(const VelArgList* list, const char* name, double* value);
/// The text is valid until the list changes.
VELMORA_PLATFORM_EXPORT int VelArgListGetString(const VelArgList* list, const char* name, const char** value);
VELMORA_PLATFORM_EXPORT int VelArgListGetArbParamPtr(const VelArgList* list, const char* name, long** value);
VELMORA_PLATFORM_EXPORT int VelArgListGetDoublePtr(const VelArgList* list, const char* name, double** value);

} // extern "C"
