#include "NewFile.h"

#include "EndSignals.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace viewer {

namespace {

/// Where a symbolic link leads, so that the file and not the link is replaced.
QString targetOf(const QString& name)
{
    const QString target = QFileInfo(name).canonicalFilePath();
    return target.isEmpty() ? QFileInfo(name).absoluteFilePath() : target;
}

bool canBeReplaced(const QFileInfo& file)
{
    return (!file.exists() || (file.isFile() && file.isWritable())) && QFileInfo(file.path()).isWritable();
}

/// There may be no room for the data on the disk although writing it went well.
bool isStored(const QByteArray& name)
{
    const int file = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool stored = ::fsync(file) == 0;
    ::close(file);
    return stored;
}

} // namespace

NewFile::NewFile(const QString& name) : m_name(targetOf(name)), m_written(m_name)
{
    const QFileInfo file(m_name);
    // In the same folder, or it could not simply be renamed; with the same suffix, by which some
    // decide what to write.
    if (canBeReplaced(file))
        m_written = QString::fromLatin1("%1/.%2-%3").arg(file.path()).arg(::getpid()).arg(file.fileName());
}

NewFile::~NewFile()
{
    if (replaces())
        QFile::remove(m_written);
}

bool NewFile::keep()
{
    if (!replaces())
        return true;
    const QByteArray written = QFile::encodeName(m_written);
    if (endWasAsked() || !isStored(written))
        return false;
    if (QFile::exists(m_name))
        QFile::setPermissions(m_written, QFile::permissions(m_name));
    return std::rename(written.constData(), QFile::encodeName(m_name).constData()) == 0;
}

} // namespace viewer
