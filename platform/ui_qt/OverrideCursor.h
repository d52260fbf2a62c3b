#pragma once

#include <qnamespace.h>

namespace velmora::ui {

/// Overrides the application's cursor for the life of the object.
class __attribute__((visibility("default"))) OverrideCursor {
public:
    /// GUI thread only, with an application object.
    explicit OverrideCursor(Qt::CursorShape shape);
    ~OverrideCursor();
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;
};

} // namespace velmora::ui
