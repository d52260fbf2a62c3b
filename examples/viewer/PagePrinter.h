#pragma once

class QPrinter;

namespace viewer {

/// Draws the engine's page on the printer's paper, as finely as the printer prints but not with more
/// dots to the inch than `finest`. False when the printer cannot be printed on, or when the drawing
/// failed or was stopped; the engine's last message then says why, unless a person stopped it.
bool printPage(QPrinter& printer, int finest = 300);

} // namespace viewer
