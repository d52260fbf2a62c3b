#include "PrintedFile.h"

#include <QFile>
#include <QPaintEngine>
#include <QPrinter>

namespace viewer {

namespace {

constexpr int LongestTrailer = 1024;

bool printsIntoFile(const QPrinter& printer)
{
    const bool intoFile = printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty();
    return intoFile && printer.paintEngine()->type() != QPaintEngine::Picture; // as a preview's is
}

// The toolkit does not tell whether everything it wrote has arrived. The end of a PDF file says where
// its table of contents begins, which is there only if all before it is.
bool isComplete(const QString& name)
{
    static const QByteArray announcement = "startxref\n";
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    file.seek(qMax<qint64>(0, file.size() - LongestTrailer));
    const QByteArray trailer = file.readAll();
    const int place = trailer.lastIndexOf(announcement);
    if (place < 0 || !trailer.trimmed().endsWith("%%EOF"))
        return false;
    const QByteArray rest = trailer.mid(place + announcement.size());
    return file.seek(rest.left(rest.indexOf('\n')).toLongLong()) && file.read(4) == "xref";
}

} // namespace

PrintedFile::PrintedFile(QPrinter& printer) : m_printer(printer), m_name(printer.outputFileName())
{
    if (!printsIntoFile(printer))
        return;
    m_file = std::make_unique<NewFile>(m_name);
    printer.setOutputFileName(m_file->writtenName());
}

PrintedFile::~PrintedFile()
{
    if (m_file)
        m_printer.setOutputFileName(m_name);
}

bool PrintedFile::keep()
{
    if (!m_file || !m_file->replaces())
        return true;
    return isComplete(m_file->writtenName()) && m_file->keep();
}

} // namespace viewer
