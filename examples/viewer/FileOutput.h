#pragma once

class QByteArray;
class QString;

namespace viewer {

struct Options;

// What the command line asks for instead of a window. They return the exit code; what goes wrong is
// told on standard error.

/// Draws the file of the options into an image file, without a window.
int exportFile(const Options& options);
/// Prints the file of the options into a PDF file.
int printFile(const Options& options);

/// Loads the first file of the options and tells on standard error what there is to know about the reading; false when
/// it failed or was stopped.
bool loadFirst(const Options& options);

/// Tells on standard error what went wrong and returns the exit code for it.
int fail(const char* message);
/// The same with the engine's last message, or that the work was stopped.
int failWithLastMessage();
/// The message about an output file.
QByteArray couldNotBeWritten(const QString& fileName);

} // namespace viewer
