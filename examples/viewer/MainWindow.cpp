#include "MainWindow.h"

#include "AboutFilePanel.h"
#include "Animation.h"
#include "AxisScales.h"
#include "HelpWindow.h"
#include "OutputCommands.h"
#include "Panels.h"
#include "RecentFiles.h"
#include "ReloadCommand.h"
#include "ScreenPixels.h"
#include "ShownPage.h"
#include "SurfaceMenu.h"
#include "ThreedMouseNavigation.h"
#include "ToolTip.h"
#include "ValueLabel.h"
#include "ViewHistory.h"
#include "ViewTools.h"
#include "WaitCursor.h"
#include "WorkIndicator.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <QActionGroup>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <vector>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int LongestFileName = 4096;
constexpr int NoteMilliseconds = 8000;
constexpr double ZoomStep = 1.2; // as one notch of the wheel

QIcon icon(const char* name)
{
    return QIcon(QString::fromLatin1(":/%1").arg(QLatin1String(name)));
}

bool load(const QString& fileName)
{
    const WaitCursor waitCursor;
    return VelUtilDataLoad(fileName.toUtf8().constData()) != 0;
}

/// Of the file opened last; empty when there is none.
QString lastFolder(const QStringList& recentFiles)
{
    const QString folder = recentFiles.isEmpty() ? QString() : QFileInfo(recentFiles.first()).absolutePath();
    return QFileInfo(folder).isDir() ? folder : QString();
}

QStringList localFiles(const QMimeData& data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls)
        if (!url.toLocalFile().isEmpty())
            files.append(url.toLocalFile());
    return files;
}

} // namespace

MainWindow::MainWindow() : m_area(new GLDrawArea(this)), m_tools(new ViewTools(*m_area))
{
    setWindowTitle(tr("Viewer"));
    setAcceptDrops(true);
    setCentralWidget(m_area);
    m_area->setMinimumSize(160, 120);
    m_area->setAccessibleName(tr("Plot"));
    m_area->setTouchInput(TouchInput_Gestures);
    m_area->setPageManager(Manager::getInstance().getPageManager());

    m_toolBar = addToolBar(tr("Tools"));
    m_toolBar->setObjectName(QLatin1String("tools"));
    m_toolBar->setAccessibleName(tr("Tools"));
    createFileMenu();
    createViewMenu();
    createHelpMenu();
    createStatusBar();
    m_tools->setTool(ViewTools::Rotate);
    showData(QString());
    connect(m_tools, SIGNAL(selectionChanged()), this, SLOT(showSelection()));
    resize(1000, 760);
}

void MainWindow::createFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    QAction* const open =
        menu->addAction(style()->standardIcon(QStyle::SP_DialogOpenButton), tr("&Open..."), this, SLOT(chooseFile()));
    setShortcut(*open, QKeySequence::Open);
    m_toolBar->addAction(open);
    m_toolBar->addSeparator();
    QMenu* const recent = menu->addMenu(tr("Open &Recent"));
    m_recentFiles = new RecentFiles(*recent, this);
    connect(m_recentFiles, SIGNAL(chosen(QString)), this, SLOT(openFile(QString)));
    m_reload = new ReloadCommand(*menu, *statusBar(), this);
    connect(m_reload, SIGNAL(reloaded(QString)), this, SLOT(showFile(QString)));
    menu->addSeparator();
    m_output = new OutputCommands(*menu, *this);
    connect(m_output, SIGNAL(pageWasSetUp()), this, SLOT(showWhetherPageShows()));
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, SLOT(close()), QKeySequence(Qt::CTRL + Qt::Key_Q));
}

void MainWindow::createViewMenu()
{
    m_viewMenu = menuBar()->addMenu(tr("&View"));
    QActionGroup* const tools = new QActionGroup(this);
    m_rotate = addTool(*tools, "cursors/rotate.png", tr("&Rotate"), tr("R"), ViewTools::Rotate);
    m_rotate->setChecked(true);
    m_move = addTool(*tools, "cursors/translate.png", tr("&Move"), tr("M"), ViewTools::Move);
    addTool(*tools, "cursors/zoom-in.png", tr("&Zoom"), tr("Z"), ViewTools::Zoom);
    addTool(*tools, "cursors/cross.png", tr("&Select"), tr("S"), ViewTools::Select);
    connect(tools, SIGNAL(triggered(QAction*)), this, SLOT(setTool(QAction*)));
    m_viewMenu->addSeparator();
    addViewCommands();
    m_toolBar->addSeparator();
    m_viewMenu->addSeparator();
    m_scales = new AxisScales(*m_viewMenu, this);
    connect(m_history, SIGNAL(viewChanged()), m_scales, SLOT(showState()));
    connect(m_scales, SIGNAL(told(QString)), this, SLOT(showNote(QString)));
    m_viewMenu->addSeparator();
    m_surface = new SurfaceMenu(*m_viewMenu, this);
    m_viewMenu->addSeparator();
    m_animation = new Animation(*m_viewMenu, *m_toolBar, this);
    new ThreedMouseNavigation(*m_viewMenu, *m_area); // which owns it
    m_viewMenu->addSeparator();
    m_panels = new Panels(*m_viewMenu, *this);
    connect(m_tools, SIGNAL(selectionChanged()), m_panels, SLOT(refresh()));
    connect(m_panels, SIGNAL(chosen()), this, SLOT(showSelection()));
    m_viewMenu->addSeparator();
}

void MainWindow::addViewCommands()
{
    QAction* const fit = m_viewMenu->addAction(icon("icons/orientation-xyz.png"), tr("&Fit"), this, SLOT(fitView()));
    setShortcut(*fit, QKeySequence(tr("F")));
    m_toolBar->addAction(fit);
    m_viewMenu->addAction(tr("Reset &View"), this, SLOT(resetView()), QKeySequence(Qt::Key_0));
    QAction* const in = m_viewMenu->addAction(tr("Zoom I&n"), this, SLOT(zoomIn()));
    in->setShortcuts(QList<QKeySequence>() << QKeySequence(Qt::Key_Plus) << QKeySequence::ZoomIn);
    QAction* const out = m_viewMenu->addAction(tr("Zoom &Out"), this, SLOT(zoomOut()));
    out->setShortcuts(QList<QKeySequence>() << QKeySequence(Qt::Key_Minus) << QKeySequence::ZoomOut);
    m_history = new ViewHistory(*m_viewMenu, *m_toolBar, this);
    m_viewMenu->addAction(tr("&Deselect"), this, SLOT(deselect()), QKeySequence(Qt::Key_Escape));
    m_showPage = m_viewMenu->addAction(tr("Show &Page"));
    m_showPage->setCheckable(true);
    connect(m_showPage, SIGNAL(triggered(bool)), this, SLOT(showPage(bool)));
    showWhetherPageShows();
}

QAction* MainWindow::addTool(QActionGroup& group, const char* iconName, const QString& text, const QString& key,
                             int tool)
{
    QAction* const action = m_viewMenu->addAction(icon(iconName), text);
    setShortcut(*action, QKeySequence(key));
    action->setCheckable(true);
    action->setData(tool);
    group.addAction(action);
    m_toolBar->addAction(action);
    return action;
}

void MainWindow::createHelpMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&Help"), new HelpWindow(this), SLOT(present()), QKeySequence(Qt::Key_F1));
    menu->addAction(tr("&About Viewer"), this, SLOT(about()));
}

void MainWindow::createStatusBar()
{
    m_description = new QLabel;
    m_description->setTextFormat(Qt::PlainText); // it names the file
    m_selection = new QLabel;
    m_selection->setTextFormat(Qt::PlainText); // it names columns
    m_selection->setMinimumWidth(1);           // a long name does not widen the window
    statusBar()->addWidget(m_description, 1);
    statusBar()->addPermanentWidget(new ValueLabel(*m_area));
    statusBar()->addPermanentWidget(m_selection);
    WorkIndicator* const work = new WorkIndicator(this);
    statusBar()->addPermanentWidget(work);
    m_viewMenu->addAction(&work->finishCommand());
}

void MainWindow::openFile(const QString& fileName)
{
    const FileState beforeReading = stateOf(fileName);
    if (!load(fileName)) {
        tellWhyNotOpened(fileName);
        return;
    }
    m_recentFiles->add(fileName);
    m_output->setDataFile(fileName);
    m_reload->setFile(fileName, beforeReading);
    showFile(fileName);
}

void MainWindow::showFile(const QString& fileName)
{
    const QString name = QFileInfo(fileName).fileName();
    setWindowTitle(tr("%1 - Viewer").arg(name));
    showData(name);
    statusBar()->clearMessage(); // it covers the description, and was about something before
    const QString notes = AboutFilePanel::countOfNotes();
    if (!notes.isEmpty())
        statusBar()->showMessage(notes, NoteMilliseconds);
}

void MainWindow::tellWhyNotOpened(const QString& fileName)
{
    if (VelUtilWasInterrupted()) {
        statusBar()->showMessage(tr("Stopped."), NoteMilliseconds);
    } else {
        VelUtilDialogLastMessageBox();
        m_recentFiles->remove(fileName);
    }
    VelUtilLastErrorMessageClear();
}

// What there is, and what can be done with it. There can be data without a file of this window's: the
// page outlives the window that it was opened in.
void MainWindow::showData(const QString& name)
{
    const QString shown = QString::fromUtf8(VelUtilDataDescription());
    if (shown.isEmpty())
        m_description->setText(tr("Open a table or a grid with File > Open, or drop it here."));
    else
        m_description->setText(name.isEmpty() ? shown : tr("%1: %2").arg(name, shown));
    m_area->setAccessibleDescription(m_description->text());
    m_output->setEnabled(!shown.isEmpty());
    m_animation->setEnabled(VelUtilViewCanRotate() != 0);
    m_scales->showState();
    m_surface->showState();
    m_history->begin();
    offerRotating(shown.isEmpty() || VelUtilViewCanRotate());
    m_panels->refresh();
    showSelection();
}

// Lines do not turn; dragging is to do something all the same, until a surface comes again.
void MainWindow::offerRotating(bool offered)
{
    m_rotate->setEnabled(offered);
    if (offered && m_movesInsteadOfRotating) {
        m_rotate->trigger();
    } else if (!offered && m_rotate->isChecked()) {
        m_move->trigger();
        m_movesInsteadOfRotating = true;
    }
}

void MainWindow::openLater(const QStringList& fileNames)
{
    m_waitingFiles += fileNames;
    QTimer::singleShot(0, this, SLOT(openWaitingFiles()));
}

void MainWindow::openWaitingFiles()
{
    while (!m_waitingFiles.isEmpty())
        openFile(m_waitingFiles.takeFirst());
}

void MainWindow::chooseFile()
{
    std::vector<char> name(LongestFileName);
    const QByteArray folder = lastFolder(m_recentFiles->files()).toUtf8();
    const QByteArray title = tr("Open a Data File").toUtf8();
    const QByteArray filter = tr("Data files (*.csv *.txt *.dat *.tsv *.asc *.grd);;All files (*)").toUtf8();
    if (VelEngSelectFile(SelectFileOption_ReadSingleFile, title.constData(), folder.constData(), filter.constData(),
                         name.data(), LongestFileName))
        openFile(QString::fromUtf8(name.data()));
}

void MainWindow::setTool(QAction* action)
{
    m_movesInsteadOfRotating = false;
    m_tools->setTool(static_cast<ViewTools::Tool>(action->data().toInt()));
}

// An Escape that stopped a drawing has done its work.
void MainWindow::deselect()
{
    if (!VelUtilPageIsInterrupted())
        m_tools->deselect();
}

void MainWindow::showSelection()
{
    const int count = VelUtilPickGetCount();
    const QString names = QString::fromUtf8(VelUtilPickDescription());
    m_selection->setText(count > 0 ? tr("%1 selected: %2").arg(count).arg(names) : QString());
    m_selection->setToolTip(m_selection->text()); // there may be little room
}

void MainWindow::showNote(const QString& note)
{
    statusBar()->showMessage(note, NoteMilliseconds);
}

void MainWindow::fitView()
{
    VelUtilViewShowAll();
}

void MainWindow::resetView()
{
    VelUtilViewFit();
}

void MainWindow::zoomIn()
{
    zoom(ZoomStep);
}

void MainWindow::zoomOut()
{
    zoom(1 / ZoomStep);
}

void MainWindow::zoom(double factor)
{
    const QSize size = screenSize(*m_area);
    VelUtilViewZoom(factor, size.width() / 2.0, size.height() / 2.0);
}

void MainWindow::showPage(bool shown)
{
    viewer::showPage(shown);
}

void MainWindow::showWhetherPageShows()
{
    m_showPage->setChecked(isPageShown());
}

void MainWindow::about()
{
    const QString text = tr("Viewer %1\n\nShows tables and grids through the integration library.\n\nOpenGL %2\nQt %3")
                             .arg(QApplication::applicationVersion(), QString::fromUtf8(VelEngOpenGLVersion()),
                                  QString::fromLatin1(qVersion()));
    VelEngMessageBoxShow(text.toUtf8().constData(), MessageBoxType_Information);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

// Later, so that the program the file comes from need not wait for the loading.
void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    openLater(localFiles(*event->mimeData()));
}

} // namespace viewer
