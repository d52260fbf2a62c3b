#pragma once

#include <memory>

namespace velmora::engine {

class Page;

/// Shows in the page's area what there is of its picture. Safe inside a paint event: no event is
/// processed, and longer work is left waiting. Nothing is thrown.
void exposePage(const std::shared_ptr<Page>& page) noexcept;

enum class DrawingResult {
    Done,
    Obsolete, ///< the page changed meanwhile and waits again, or its area is gone
    Stopped,  ///< by the application
    Failed    ///< with the reason in the last error
};

/// Draws the page's picture in slices and shows it, also while it grows. Inside a BusyScope. Nothing
/// is thrown.
DrawingResult drawPage(const std::shared_ptr<Page>& page) noexcept;

} // namespace velmora::engine
