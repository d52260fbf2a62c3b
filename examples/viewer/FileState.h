#pragma once

#include <QString>

#include <sys/types.h>
#include <time.h>

namespace viewer {

/// What tells that a file is another one than before, or has another content.
struct FileState {
    bool exists = false;
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec written = {};
};

/// Of where a symbolic link leads.
FileState stateOf(const QString& fileName);
bool operator==(const FileState& a, const FileState& b);

} // namespace viewer
