#pragma once

#include "engine/VelExport.h"

#include <string>
#include <vector>

namespace velmora {
namespace toolbox {

class ArgList;
class StringList;

/// Reads and writes values of the engine's style tree. The leading words of the path are given to
/// the constructor, the rest is turned into macro identifiers; an argument list carries both to the
/// engine together with the value.
class VELMORA_PLATFORM_EXPORT StyleValue {
public:
    /// A style path of up to seven words; the first null ends them.
    explicit StyleValue(const char* word1 = nullptr, const char* word2 = nullptr, const char* word3 = nullptr,
                        const char* word4 = nullptr, const char* word5 = nullptr, const char* word6 = nullptr,
                        const char* word7 = nullptr);
    /// The same for a list of words.
    explicit StyleValue(const StringList& words);
    ~StyleValue();
    StyleValue(const StyleValue&) = delete;
    StyleValue& operator=(const StyleValue&) = delete;

    /// Turns up to seven further words into macro identifiers, closed by -1.
    static void initMacroIDsfromStyleValueNames(std::vector<long>& ids, const char* name1, const char* name2 = nullptr,
                                                const char* name3 = nullptr, const char* name4 = nullptr,
                                                const char* name5 = nullptr, const char* name6 = nullptr,
                                                const char* name7 = nullptr);

    /// Fills `args` for a read. An offset of -1 means none.
    void setupGetValueArgList(const std::vector<long>& ids, int offset1, int offset2, ArgList& args) const;
    /// Fills `args` for a write. `set` restricts it to members of a set (null: all), an offset of
    /// -1 means none, `assignOp` says how to combine with the value that is there (255: replace).
    void setupSetValueArgList(const std::vector<long>& ids, const void* set, int offset1, int offset2, int assignOp,
                              ArgList& args) const;

    /// @{
    /// Reads into `value`, which stays as it is when the read fails; a code for returnCodeOk.
    static int getFinalValue(bool* value, ArgList& args);
    static int getFinalValue(double* value, ArgList& args);
    /// @}
    /// @{
    /// Writes; 0 when the value was applied, else the engine's code for why not (also when the
    /// value was there already).
    static int setFinalValue(bool value, ArgList& args);
    static int setFinalValue(double value, ArgList& args);
    /// @}
    /// @{
    /// The same for argument lists that carry their value as "IValue" and "DValue".
    static int styleGetLowLevel(ArgList& args);
    static int styleSetLowLevel(ArgList& args);
    /// @}
    /// Whether the code of a read means that there is a value.
    static bool returnCodeOk(int code);

private:
    std::vector<std::string> m_words;
};

} // namespace toolbox
} // namespace velmora
