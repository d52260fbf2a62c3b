#pragma once

#include "engine/VelExport.h"

struct VelArgList;

namespace velmora {
namespace toolbox {

/// Named arguments for an engine call, kept in the order they were appended. Owns the engine's
/// list behind it.
class VELMORA_PLATFORM_EXPORT ArgList {
public:
    ArgList();
    ~ArgList();
    ArgList(const ArgList&) = delete;
    ArgList& operator=(const ArgList&) = delete;

    /// @{
    /// A value under a name; both are copied. Throws what the engine throws, and has then appended
    /// nothing.
    void appendInt(const char* name, int value);
    void appendDouble(const char* name, double value);
    void appendString(const char* name, const char* value);
    /// @}
    /// A value of machine-word size.
    void appendArbParam(const char* name, long value);
    /// Where the engine writes a value of machine-word size.
    void appendArbParamPtr(const char* name, long* value);
    /// Where the engine writes a number.
    void appendDoublePtr(const char* name, double* value);
    /// Removes all arguments.
    void clear();

    /// The engine's list, for an entry point that takes one; valid as long as this object.
    VelArgList* getRef() const { return m_list; }

private:
    VelArgList* m_list;
};

} // namespace toolbox
} // namespace velmora
