#include "FileWatch.h"

#include <QFileInfo>
#include <QStringList>

namespace viewer {

namespace {

constexpr int QuietMilliseconds = 200; // a file is written in several steps

} // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent)
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(QuietMilliseconds);
    connect(&m_soon, SIGNAL(timeout()), this, SLOT(look()));
    connect(&m_watcher, SIGNAL(fileChanged(QString)), this, SLOT(lookSoon()));
    connect(&m_watcher, SIGNAL(directoryChanged(QString)), this, SLOT(lookSoon()));
}

void FileWatch::watch(const QString& fileName, const FileState& known)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    if (path != m_file && !watched.isEmpty())
        m_watcher.removePaths(watched);
    m_file = path;
    m_known = known;
    watchPaths();
    lookSoon(); // it may have changed since it was known
}

// The folder tells of a file that comes back, which as a file is not watched any more. Where a symbolic link leads may
// be in another folder.
void FileWatch::watchPaths()
{
    const QFileInfo file(m_file);
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    QStringList paths(file.absolutePath());
    if (file.exists())
        paths << m_file << QFileInfo(file.canonicalFilePath()).absolutePath();
    paths.removeDuplicates();
    for (const QString& path : paths)
        if (!watched.contains(path))
            m_watcher.addPath(path);
}

void FileWatch::lookSoon()
{
    if (!m_soon.isActive())
        m_soon.start();
}

void FileWatch::look()
{
    watchPaths();
    const FileState state = stateOf(m_file);
    if (!state.exists || state == m_known)
        return;
    m_known = state;
    Q_EMIT changed();
}

} // namespace viewer
