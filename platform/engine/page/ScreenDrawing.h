#pragma once

#include <memory>

namespace velmora::engine {

class Page;

/// Shows in the page's area what there is of its picture. Safe inside a paint event: no event is
/// processed, and longer work is left waiting. Nothing is thrown.
void exposePage(const std::shared_ptr<Page>& page) noexcept;

/// Shows the picture anew with the page's mark, without drawing it. Nothing where the picture is not kept.
/// Nothing is thrown.
void showMark(const std::shared_ptr<Page>& page) noexcept;

enum class DrawingResult {
    Done,
    Obsolete, ///< the page changed meanwhile and waits again, or its area is gone
    Stopped,  ///< by the application
    Failed    ///< with the reason in the last error
};

/// Draws and shows a coarse picture of the page at once, without a turn for the application. Done also means
/// that nothing needs to be refined when the page's picture is complete then. Nothing is thrown.
DrawingResult showCoarsePicture(const std::shared_ptr<Page>& page) noexcept;

/// Draws the page's full picture in slices, unseen. Inside a BusyScope it is work that can be stopped;
/// without one the application goes on as it likes meanwhile, and the drawing follows. Nothing is thrown.
DrawingResult drawFullPicture(const std::shared_ptr<Page>& page) noexcept;

/// After a drawing of the full picture: shows it if it was done, and notes how it ended. Nothing is thrown.
DrawingResult settlePicture(const std::shared_ptr<Page>& page, DrawingResult result) noexcept;

/// Whether the application is having its turn in a drawing that goes on soon. False when it has kept the turn
/// for itself, with an event loop of its own perhaps, so that the page is better drawn anew within.
bool isDrawingAboutToGoOn();

} // namespace velmora::engine
