#include "OutputCommands.h"

#include "ExportDialog.h"
#include "PagePrinter.h"
#include "PageSetup.h"
#include "WaitCursor.h"
#include "engine/VelUtil.h"
#include "integration/printing/PrintingUtil.h"

#include <QFileDialog>
#include <QGraphicsView>
#include <QMainWindow>
#include <QMenu>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QStatusBar>
#include <QTimer>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int NoteMilliseconds = 8000;
constexpr int RetryMilliseconds = 50;
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

/// Keeps a preview empty and out of use. While its page is drawn, which gives the application its turn,
/// the toolkit has let go of the pages that the preview would paint, and has no new ones yet.
class PreviewAtRest {
public:
    explicit PreviewAtRest(QPrintPreviewWidget& preview)
        : m_window(*preview.window()), m_view(*preview.findChild<QGraphicsView*>()), m_pages(m_view.scene())
    {
        m_window.setEnabled(false);
        m_view.setScene(nullptr);
    }
    ~PreviewAtRest()
    {
        m_view.setScene(m_pages);
        m_window.setEnabled(true);
    }
    PreviewAtRest(const PreviewAtRest&) = delete;
    PreviewAtRest& operator=(const PreviewAtRest&) = delete;

private:
    QWidget& m_window;
    QGraphicsView& m_view;
    QGraphicsScene* m_pages;
};

} // namespace

OutputCommands::OutputCommands(QMenu& menu, QMainWindow& window) : QObject(&window), m_window(window)
{
    menu.addAction(tr("&Export Image..."), this, SLOT(exportImage()), QKeySequence(Qt::CTRL + Qt::Key_E));
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
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    UpdatePrinterFromKernel(*m_printer);
    return *m_printer;
}

void OutputCommands::setUpPage()
{
    if (!isEngineFree())
        return;
    QPrinter& printer = printerWithPage();
    if (askForPage(printer, m_window))
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

void OutputCommands::paintPreview(QPrinter* printer)
{
    QPrintPreviewWidget* const preview = sender()->findChild<QPrintPreviewWidget*>();
    // The preview's button that prints leads here as well, with the printer as it is and the preview
    // still open.
    const bool isForScreen = printer->paintEngine()->type() == QPaintEngine::Picture;
    if (!isForScreen) {
        QTimer::singleShot(0, this, SLOT(printWhenFree()));
    } else if (VelUtilIsBusy()) {
        m_waitingPreview = preview;
        QTimer::singleShot(RetryMilliseconds, this, SLOT(updateWaitingPreview()));
    } else {
        const PreviewAtRest atRest(*preview);
        UpdateKernelFromPrinter(*printer);
        printPage(*printer, PreviewDotsPerInch);
    }
}

// Not while the engine is busy, which is perhaps with this very preview: a second update inside the
// first would leave the printer with the preview's pages for good, and these are deleted when it prints.
void OutputCommands::updateWaitingPreview()
{
    if (VelUtilIsBusy())
        QTimer::singleShot(RetryMilliseconds, this, SLOT(updateWaitingPreview()));
    else if (m_waitingPreview)
        m_waitingPreview->updatePreview();
}

void OutputCommands::printWhenFree()
{
    if (VelUtilIsBusy())
        QTimer::singleShot(RetryMilliseconds, this, SLOT(printWhenFree()));
    else
        printOn(*m_printer);
}

void OutputCommands::print()
{
    if (!isEngineFree())
        return;
    QPrinter& printer = printerWithPage();
    QPrintDialog dialog(&printer, &m_window);
    if (dialog.exec() == QDialog::Accepted)
        printOn(printer);
}

void OutputCommands::printOn(QPrinter& printer)
{
    UpdateKernelFromPrinter(printer);
    const bool done = [&] {
        const WaitCursor waitCursor;
        return printPage(printer);
    }();
    tell(done, tr("The page is printed."));
}

} // namespace viewer
