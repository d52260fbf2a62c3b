#pragma once

namespace viewer {

// Whether the window shows the whole page, with the edge of its paper, or the plot alone. It is a
// setting of the engine, which turns it on by itself whenever the paper may have changed.

bool isPageShown();
void showPage(bool shown);

} // namespace viewer
