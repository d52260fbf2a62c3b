#pragma once

class QPrinter;
class QString;

namespace viewer {

/// Draws the engine's page on the printer's paper, as finely as the printer prints but not with more
/// dots to the inch than `finest`. False when the printer cannot be printed on, or when the drawing
/// failed or was stopped; the engine's last message then says why, unless a person stopped it.
bool printPage(QPrinter& printer, int finest = 300);

/// Titles what is printed with the name of the data file, and tells the program: in a PDF file, and where print jobs
/// are listed.
void nameDocument(QPrinter& printer, const QString& dataFile);

} // namespace viewer
