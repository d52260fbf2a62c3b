#include "OutputCommands.h"

#include "ExportDialog.h"
#include "Notes.h"
#include "PagePrinter.h"
#include "PageSetup.h"
#include "ScreenPixels.h"
#include "ShownPage.h"
#include "WaitCursor.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/printing/PrintingUtil.h"
#include "interfaces/ApplicationEventMonitorInterface.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
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

constexpr int RetryMilliseconds = 50;
constexpr int PreviewDotsPerInch = 100; // about the screen's

QString waitNote()
{
    return OutputCommands::tr("Wait until the drawing is complete, or stop it.");
}

/// Gives the engine the printer's page. The engine then shows the page in the window; that is for the
/// person to ask for.
void takePageFrom(QPrinter& printer)
{
    const bool shown = isPageShown();
    UpdateKernelFromPrinter(printer);
    showPage(shown);
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

OutputCommands::OutputCommands(QMenu& menu, QMainWindow& window)
    : QObject(&window), m_window(window), m_notes(window.statusBar())
{
    m_export = menu.addAction(tr("&Export Image..."), this, SLOT(exportImage()), QKeySequence(Qt::CTRL + Qt::Key_E));
    menu.addSeparator();
    menu.addAction(tr("Page &Setup..."), this, SLOT(setUpPage()));
    m_preview = menu.addAction(tr("Print Pre&view..."), this, SLOT(preview()));
    m_print = menu.addAction(tr("&Print..."), this, SLOT(print()), QKeySequence::Print);
    m_notBusy =
        Manager::getInstance().getApplicationEventMonitor().connectEngineIsNoLongerBusy([this] { workEnded(); });
}

OutputCommands::~OutputCommands() = default;

void OutputCommands::setEnabled(bool enabled)
{
    for (QAction* const action : {m_export, m_preview, m_print})
        action->setEnabled(enabled);
}

// A key can choose a command in the middle of a drawing, which could not go on beneath it.
bool OutputCommands::isEngineFree()
{
    const bool free = !VelUtilIsBusy();
    if (!free)
        m_notes->showMessage(waitNote(), NoteMilliseconds);
    return free;
}

void OutputCommands::workEnded()
{
    if (m_notes && m_notes->currentMessage() == waitNote())
        m_notes->clearMessage();
}

void OutputCommands::tell(bool done, const QString& success)
{
    if (done)
        m_notes->showMessage(success, NoteMilliseconds);
    else
        tellFailure(*m_notes);
}

// The toolkit's own dialog: the engine's offers files that there are, not names for new ones.
QString OutputCommands::chooseImageFile()
{
    const QFileInfo data(m_dataFile.isEmpty() ? QString::fromLatin1("plot") : m_dataFile);
    QFileDialog dialog(&m_window, tr("Export Image"), m_imageFolder.isEmpty() ? data.absolutePath() : m_imageFolder,
                       tr("PNG images (*.png)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String("png"));
    dialog.selectFile(data.completeBaseName() + QLatin1String(".png"));
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    QString name = dialog.selectedFiles().value(0);
    m_imageFolder = QFileInfo(name).absolutePath();
    return name;
}

void OutputCommands::exportImage()
{
    if (!isEngineFree())
        return;
    ExportDialog dialog(screenSize(*m_window.findChild<GLDrawArea*>()), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString name = chooseImageFile();
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
    nameDocument(*m_printer, m_dataFile);
    UpdatePrinterFromKernel(*m_printer);
    return *m_printer;
}

void OutputCommands::setUpPage()
{
    if (!isEngineFree())
        return;
    QPrinter& printer = printerWithPage();
    if (!askForPage(printer, m_window))
        return;
    UpdateKernelFromPrinter(printer);
    Q_EMIT pageWasSetUp();
}

void OutputCommands::preview()
{
    if (!isEngineFree())
        return;
    QPrintPreviewDialog dialog(&printerWithPage(), &m_window);
    connect(&dialog, SIGNAL(paintRequested(QPrinter*)), this, SLOT(paintPreview(QPrinter*)));
    m_previewFailed = false;
    dialog.exec();
    if (m_previewFailed)
        tell(false, QString());
}

void OutputCommands::paintPreview(QPrinter* printer)
{
    QPrintPreviewDialog* const dialog = qobject_cast<QPrintPreviewDialog*>(sender());
    QPrintPreviewWidget* const preview = dialog->findChild<QPrintPreviewWidget*>();
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
        takePageFrom(*printer);
        m_previewFailed = !printPage(*printer, PreviewDotsPerInch);
        // Later: this may be before the dialog shows for the first time, which it would do all the same.
        if (m_previewFailed)
            QTimer::singleShot(0, dialog, SLOT(reject()));
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
    takePageFrom(printer);
    const bool done = [&] {
        const WaitCursor waitCursor;
        return printPage(printer);
    }();
    tell(done, tr("The page is printed."));
}

} // namespace viewer
