#include "OutputCommands.h"

#include "ExportDialog.h"
#include "PagePrinter.h"
#include "WaitCursor.h"
#include "engine/VelUtil.h"
#include "integration/printing/PrintingUtil.h"

#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QStatusBar>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int NoteMilliseconds = 8000;
constexpr int PreviewDotsPerInch = 100; // about the screen's

// The toolkit's own dialog: the engine's offers files that there are, not names for new ones.
QString chooseImageFile(QWidget* parent)
{
    QFileDialog dialog(parent, OutputCommands::tr("Export Image"), QString(), OutputCommands::tr("PNG images (*.png)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String("png"));
    dialog.selectFile(QLatin1String("plot.png"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

OutputCommands::OutputCommands(QMenu& menu, QMainWindow& window) : QObject(&window), m_window(window)
{
    menu.addAction(tr("&Export Image..."), this, SLOT(exportImage()), QKeySequence(Qt::CTRL | Qt::Key_E));
    menu.addSeparator();
    menu.addAction(tr("Page &Setup..."), this, SLOT(setUpPage()));
    menu.addAction(tr("Print Pre&view..."), this, SLOT(preview()));
    menu.addAction(tr("&Print..."), this, SLOT(print()), QKeySequence::Print);
}

OutputCommands::~OutputCommands() = default;

// A key can choose a command in the middle of a drawing, which could not go on beneath it.
bool OutputCommands::isEngineFree()
{
    const bool free = !VelUtilIsBusy();
    if (!free)
        m_window.statusBar()->showMessage(tr("Wait until the drawing is complete, or stop it."), NoteMilliseconds);
    return free;
}

void OutputCommands::tell(bool done, const QString& success)
{
    const bool stopped = !done && VelUtilWasInterrupted();
    if (done || stopped)
        m_window.statusBar()->showMessage(done ? success : tr("Stopped."), NoteMilliseconds);
    else
        VelUtilDialogLastMessageBox();
    VelUtilLastErrorMessageClear();
}

void OutputCommands::exportImage()
{
    if (!isEngineFree())
        return;
    ExportDialog dialog(m_window.centralWidget()->size(), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString name = chooseImageFile(&m_window);
    if (name.isEmpty())
        return;
    const VelExportImageOptions options = dialog.options();
    const bool done = [&] {
        const WaitCursor waitCursor;
        return VelUtilExportImage(name.toUtf8().constData(), &options) != 0;
    }();
    tell(done, tr("%1 is written.").arg(name));
}

QPrinter& OutputCommands::printerWithPage()
{
    if (!m_printer)
        m_printer.reset(new QPrinter(QPrinter::HighResolution));
    UpdatePrinterFromKernel(*m_printer);
    return *m_printer;
}

void OutputCommands::setUpPage()
{
    if (!isEngineFree())
        return;
    QPrinter& printer = printerWithPage();
    QPageSetupDialog dialog(&printer, &m_window);
    if (dialog.exec() == QDialog::Accepted)
        UpdateKernelFromPrinter(printer);
}

void OutputCommands::preview()
{
    if (!isEngineFree())
        return;
    QPrintPreviewDialog dialog(&printerWithPage(), &m_window);
    connect(&dialog, SIGNAL(paintRequested(QPrinter*)), this, SLOT(paintPreview(QPrinter*)));
    dialog.exec();
}

// The preview has buttons of its own for the paper. While the page is drawn they work, and lead
// here again: the drawing under way then shows what is needed.
void OutputCommands::paintPreview(QPrinter* printer)
{
    if (m_paintingPreview)
        return;
    m_paintingPreview = true;
    UpdateKernelFromPrinter(*printer);
    printPage(*printer, PreviewDotsPerInch);
    m_paintingPreview = false;
}

void OutputCommands::print()
{
    if (!isEngineFree())
        return;
    QPrinter& printer = printerWithPage();
    QPrintDialog dialog(&printer, &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    UpdateKernelFromPrinter(printer);
    const bool done = [&] {
        const WaitCursor waitCursor;
        return printPage(printer);
    }();
    tell(done, tr("The page is printed."));
}

} // namespace viewer
