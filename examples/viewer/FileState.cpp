#include "FileState.h"

#include <QFile>

#include <sys/stat.h>

namespace viewer {

FileState stateOf(const QString& fileName)
{
    struct stat found = {};
    FileState state;
    state.exists = ::stat(QFile::encodeName(fileName).constData(), &found) == 0;
    if (state.exists) {
        state.device = found.st_dev;
        state.number = found.st_ino;
        state.size = found.st_size;
        state.written = found.st_mtim;
    }
    return state;
}

bool operator==(const FileState& a, const FileState& b)
{
    return a.exists == b.exists && a.device == b.device && a.number == b.number && a.size == b.size &&
           a.written.tv_sec == b.written.tv_sec && a.written.tv_nsec == b.written.tv_nsec;
}

} // namespace viewer
