#include "MainWindow.h"

#include "Animation.h"
#include "OutputCommands.h"
#include "RecentFiles.h"
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
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <vector>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int LongestFileName = 4096;
constexpr int NoteMilliseconds = 8000;

QIcon icon(const char* name)
{
    return QIcon(QString::fromLatin1(":/%1").arg(QLatin1String(name)));
}

bool load(const QString& fileName)
{
    const WaitCursor waitCursor;
    return VelUtilDataLoad(fileName.toUtf8().constData()) != 0;
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
    m_area->setPageManager(Manager::getInstance().getPageManager());

    m_toolBar = addToolBar(tr("Tools"));
    m_toolBar->setObjectName(QLatin1String("tools"));
    createFileMenu();
    createViewMenu();
    createHelpMenu();
    new Animation(*m_toolBar, this);
    createStatusBar();
    m_tools->setTool(ViewTools::Rotate);
    connect(m_tools, SIGNAL(selectionChanged()), this, SLOT(showSelection()));
    resize(1000, 760);
}

void MainWindow::createFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(tr("&Open..."), this, SLOT(chooseFile()), QKeySequence::Open);
    QMenu* const recent = menu->addMenu(tr("Open &Recent"));
    m_recentFiles = new RecentFiles(*recent, this);
    connect(m_recentFiles, SIGNAL(chosen(QString)), this, SLOT(openFile(QString)));
    menu->addSeparator();
    new OutputCommands(*menu, *this);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, SLOT(close()), QKeySequence(Qt::CTRL + Qt::Key_Q));
}

void MainWindow::createViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    QActionGroup* const tools = new QActionGroup(this);
    addTool(*menu, *tools, "cursors/rotate.png", tr("&Rotate"), tr("R"), ViewTools::Rotate)->setChecked(true);
    addTool(*menu, *tools, "cursors/translate.png", tr("&Move"), tr("M"), ViewTools::Move);
    addTool(*menu, *tools, "cursors/zoom-in.png", tr("&Zoom"), tr("Z"), ViewTools::Zoom);
    addTool(*menu, *tools, "cursors/cross.png", tr("&Select"), tr("S"), ViewTools::Select);
    connect(tools, SIGNAL(triggered(QAction*)), this, SLOT(setTool(QAction*)));
    menu->addSeparator();
    QAction* const fit =
        menu->addAction(icon("icons/orientation-xyz.png"), tr("&Fit"), this, SLOT(fitView()), QKeySequence(tr("F")));
    m_toolBar->addAction(fit);
    menu->addAction(tr("&Deselect"), this, SLOT(deselect()), QKeySequence(Qt::Key_Escape));
    m_toolBar->addSeparator();
}

QAction* MainWindow::addTool(QMenu& menu, QActionGroup& group, const char* iconName, const QString& text,
                             const QString& key, int tool)
{
    QAction* const action = menu.addAction(icon(iconName), text);
    action->setShortcut(QKeySequence(key));
    action->setCheckable(true);
    action->setData(tool);
    group.addAction(action);
    m_toolBar->addAction(action);
    return action;
}

void MainWindow::createHelpMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&About Viewer"), this, SLOT(about()));
}

void MainWindow::createStatusBar()
{
    m_description = new QLabel;
    m_selection = new QLabel;
    statusBar()->addWidget(m_description, 1);
    statusBar()->addPermanentWidget(m_selection);
    statusBar()->addPermanentWidget(new WorkIndicator(this));
}

void MainWindow::openFile(const QString& fileName)
{
    if (!load(fileName)) {
        VelUtilDialogLastMessageBox();
        VelUtilLastErrorMessageClear();
        if (!VelUtilWasInterrupted())
            m_recentFiles->remove(fileName);
        return;
    }
    showSelection();
    m_recentFiles->add(fileName);
    const QString name = QFileInfo(fileName).fileName();
    setWindowTitle(tr("%1 - Viewer").arg(name));
    m_description->setText(tr("%1: %2").arg(name, QString::fromUtf8(VelUtilDataDescription())));
    const QString notes = QString::fromUtf8(VelUtilLastLoadNotes());
    if (!notes.isEmpty())
        statusBar()->showMessage(notes.simplified(), NoteMilliseconds);
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
    const QByteArray title = tr("Open a Data File").toUtf8();
    const QByteArray filter = tr("Data files (*.csv *.txt *.dat *.tsv *.asc *.grd);;All files (*)").toUtf8();
    if (VelEngSelectFile(SelectFileOption_ReadSingleFile, title.constData(), "", filter.constData(), name.data(),
                         LongestFileName))
        openFile(QString::fromUtf8(name.data()));
}

void MainWindow::setTool(QAction* action)
{
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
    m_selection->setText(count > 0 ? tr("%1 selected").arg(count) : QString());
}

void MainWindow::fitView()
{
    VelUtilViewFit();
}

void MainWindow::about()
{
    const QString text = tr("Viewer\n\nShows tables and grids through the integration library.\n\nOpenGL %1\nQt %2")
                             .arg(QString::fromUtf8(VelEngOpenGLVersion()), QString::fromLatin1(qVersion()));
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
