#pragma once

namespace velmora::sdk::integration::intern {

/// Counts as an open dialog of the engine for the life of the object. GUI thread only.
class OpenDialog {
public:
    OpenDialog() { ++s_count; }
    ~OpenDialog() { --s_count; }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

    static int count() { return s_count; }

private:
    static inline int s_count = 0;
};

} // namespace velmora::sdk::integration::intern
