#pragma once

#include "engine/style/StyleDefaults.h"

#include <map>
#include <set>
#include <string>

namespace velmora::engine::fuzz {

/// What a read or write names besides its value.
struct StyleCall {
    std::string path;
    bool unknownWord = false; ///< a macro identifier that names no word
    bool offset = false;      ///< an offset, which no path has
    bool partial = false;     ///< write: a set, or another assignment than to replace
};

/// The value that a write carries, or the type that a read asks for: of exactly this type, or what
/// fits the path among the values of a list.
enum class StyleAccess { Exact, List };

/// What the style tree has to answer and to hold, said once more and more simply.
class StyleModel {
public:
    StyleModel();

    /// StyleCode_e of a read that can deliver values of the type of `sample` only.
    int read(const StyleCall& call, const style::Value& sample, StyleAccess access) const;
    /// StyleCode_e of a write of a value.
    int write(const StyleCall& call, const style::Value& value, StyleAccess access);
    /// StyleCode_e of a read or write whose list has no value.
    int readNothing(const StyleCall& call) const;
    int writeNothing(const StyleCall& call) const;

    void refuseWrites(const std::string& path, int code) { m_refused[path] = code; }
    void failReads(const std::string& path, bool fail);
    void forgetSteering();
    /// Takes over a value that is there; false when the path does not allow it.
    bool adopt(const std::string& path, const style::Value& value);

    /// All paths but the second names, with their values.
    std::map<std::string, style::Value> values() const;
    /// The value at a path that there is.
    const style::Value& value(const std::string& path) const;
    static std::string storedPath(const std::string& path);

private:
    const style::StyleDefault* find(const std::string& path) const;
    int beforeReading(const StyleCall& call) const;
    int beforeWriting(const StyleCall& call) const;

    std::map<std::string, style::StyleDefault> m_settings;
    std::map<std::string, int> m_refused;
    std::set<std::string> m_failing;
};

} // namespace velmora::engine::fuzz
