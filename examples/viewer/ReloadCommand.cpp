#include "ReloadCommand.h"

#include "FileWatch.h"
#include "Notes.h"
#include "WaitCursor.h"
#include "engine/VelUtil.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>

namespace viewer {

namespace {

constexpr int RetryMilliseconds = 50;

} // namespace

ReloadCommand::ReloadCommand(QMenu& menu, QStatusBar& bar, QObject* parent)
    : QObject(parent), m_bar(bar),
      m_action(menu.addAction(tr("Re&load"), this, SLOT(reload()), QKeySequence(Qt::Key_F5))),
      m_offer(new QPushButton(tr("The file has changed. Reload"))), m_watch(new FileWatch(this))
{
    m_action->setEnabled(false);
    m_offer->setFocusPolicy(Qt::NoFocus); // it comes by itself, and keys go on to where they went
    m_offer->setToolTip(tr("Read the file again and keep the view"));
    bar.addPermanentWidget(m_offer);
    m_offer->hide();
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryMilliseconds);
    connect(&m_retry, SIGNAL(timeout()), this, SLOT(reload()));
    connect(m_offer, SIGNAL(clicked()), this, SLOT(reload()));
    connect(m_watch, SIGNAL(changed()), this, SLOT(offer()));
}

void ReloadCommand::setFile(const QString& fileName, const FileState& read)
{
    m_file = fileName;
    m_action->setEnabled(true);
    m_offer->hide();
    m_watch->watch(fileName, read);
}

void ReloadCommand::offer()
{
    m_offer->show();
}

void ReloadCommand::reload()
{
    if (VelUtilIsBusy() || QApplication::activeModalWidget()) {
        m_retry.start();
        return;
    }
    const FileState state = stateOf(m_file);
    const bool done = read();
    setFile(m_file, state); // a file that could not be read is offered again when it changes
    if (done)
        Q_EMIT reloaded(m_file);
    else
        tellFailure(m_bar);
}

bool ReloadCommand::read()
{
    const WaitCursor waitCursor;
    return VelUtilDataReload(m_file.toUtf8().constData()) != 0;
}

} // namespace viewer
