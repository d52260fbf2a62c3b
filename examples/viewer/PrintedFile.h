#pragma once

#include "NewFile.h"

#include <memory>

class QPrinter;

namespace viewer {

/// Lets a printer that prints into a PDF file print into a new one, which takes its place once the
/// page is complete. Other printers print as they are told.
class PrintedFile {
public:
    explicit PrintedFile(QPrinter& printer);
    /// Gives the printer its file back.
    ~PrintedFile();
    PrintedFile(const PrintedFile&) = delete;
    PrintedFile& operator=(const PrintedFile&) = delete;

    /// After the painting; false when the file is not complete, because the disk is full perhaps, or
    /// cannot be put in its place.
    bool keep();

private:
    QPrinter& m_printer;
    const QString m_name;
    std::unique_ptr<NewFile> m_file; ///< null: not a file to replace
};

} // namespace viewer
