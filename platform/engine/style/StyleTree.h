#pragma once

#include "engine/style/StyleDefaults.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::engine::style {

/// The engine's settings: typed values under paths of words, written "Paper/PaperSize" here. Every
/// path exists from the start with its default, whether or not the engine has been started.
///
/// "GlobalPaper/PaperSizeInfo/…" is the branch of the paper definitions, which the branch of the
/// current paper, "Paper/PaperSizeInfo/…", edits: both name the same stored values.
///
/// GUI thread only.
class StyleTree {
public:
    /// Hears of each value that changed, as its "Paper/…" path, after the change; "" stands for
    /// everything. It must not write to the tree.
    using Observer = void (*)(std::string_view path);

    StyleTree();
    StyleTree(const StyleTree&) = delete;
    StyleTree& operator=(const StyleTree&) = delete;

    /// The value at a path, or null when there is no such path. Valid until the next write.
    const Value* find(std::string_view path) const;
    /// Writes a value of the type that the path holds; a StyleCode_e.
    int write(std::string_view path, const Value& value);
    /// Gives every path its default back.
    void reset();

    /// Grows with every change.
    unsigned long changeCount() const { return m_changeCount; }
    /// Adding an observer twice has no further effect.
    void addObserver(Observer observer);

private:
    struct Setting {
        Value value;
        double minimum;
        double maximum;
    };
    void changed(std::string_view path);

    std::map<std::string, Setting, std::less<>> m_settings;
    std::vector<Observer> m_observers;
    unsigned long m_changeCount = 0;
};

/// The engine's one tree. It exists as long as the library is loaded, so that an engine may still
/// be stopped while the objects of the program are being destroyed.
StyleTree& tree();

// What the engine itself asks for; 0, false or "" when the path holds no value of that type.

bool lookupBool(std::string_view path);
long lookupInt(std::string_view path);
double lookupDouble(std::string_view path);
std::string lookupText(std::string_view path);

} // namespace velmora::engine::style
